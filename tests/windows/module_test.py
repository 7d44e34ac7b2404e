"""The design module as a library of Windows: what leaves it, and loading it."""

import fnmatch
import re
import shutil
import subprocess

import pytest

import module_wine
from module_wine import BIN, ROOT, windows_path

module_wine.require(module_wine.OBJDUMP, "c++filt")

MODULE = BIN / "tz_alu.dll"
HOST = next(BIN.glob("*aluhost.dll"), None)


@pytest.fixture(scope="module")
def wine():
    folder, machine = module_wine.temporary_wine()
    yield machine
    machine.end()
    folder.cleanup()


def exported():
    """Names that the library exports, as in the source."""
    listing = subprocess.run(
        [module_wine.OBJDUMP, "-p", str(MODULE)], capture_output=True, text=True, check=True,
    ).stdout
    table = listing.split("[Ordinal/Name Pointer] Table")[1].split("\n\n")[0]
    names = re.findall(r"^\s*\[\s*\d+\]\s+(\S+)$", table, re.MULTILINE)
    done = subprocess.run(
        ["c++filt"], input="\n".join(names), capture_output=True, text=True, check=True)
    # Entries that correct the address of an object belong to the operation that they lead to.
    return [name.removeprefix("non-virtual thunk to ") for name in done.stdout.splitlines()]


def patterns():
    """Those of the list of exports, which the library for Linux is linked by."""
    text = (ROOT / "tz_alu" / "module" / "exports.map").read_text()
    listed = text.split("global:")[1].split("local:")[0]
    return [p.replace("?", " ") for p in re.findall(r"([\w?:*]+);", listed)]


def test_what_is_exported_is_on_the_list_of_exports():
    names = exported()
    assert len(names) > 50
    strangers = [n for n in names if not any(fnmatch.fnmatchcase(n, p) for p in patterns())]
    assert strangers == []


def test_everything_that_a_host_calls_is_exported():
    called = {
        "Init_tz_aludll",
        "IAluDgnDataMgr::Instance()",
        "IAluDgnDataMgr::CheckCode(CArray<unsigned int> const*)",
        "IAluDgnDataMgr::MakeReport(CArray<unsigned int> const*, CString)",
        "IAluDgnDataMgr::MakeReport(unsigned int)",
        "CALUCode_GB50429_07::CheckCode(ALU_DGN_DATA const&, AluDgnSectForce const&, "
        "T_RALU_SECT&)",
        "CALUCode_GB50429_07::CheckCode(ALU_DGN_DATA const&, AluDgnSectForce const&, "
        "T_RALU_SECT&, ALU_CAL_BUFF&)",
        "CDgnAluCodeDlg::CDgnAluCodeDlg(CWnd*)",
        "CDgnAluMatDlg::CDgnAluMatDlg(CWnd*)",
        "vtable for CDgnAluCodeDlg",
        "vtable for CDgnAluMatDlg",
        "vtable for CALUCode_GB50429_07",
    }
    assert called - set(exported()) == set()


def test_every_exported_class_of_linux_is_exported_here_too():
    owners = {re.match(r"(?:vtable for |typeinfo (?:name )?for )?(\w+)", n).group(1)
              for n in exported()}
    assert owners == {
        "ALU_DGN_DATA", "ALU_DGN_DATA_CODE", "ALU_SECT_DATA", "ALU_MATL_DATA", "ALU_PARA_DATA",
        "ALU_DGN_MEMB", "ALU_CAL_REPORT", "ALU_CAL_BUFF", "AluDgnEndForce", "AluDgnSectForce",
        "CALUCode_GB50429_07", "CALU_GB50429_07Print", "CALUPrint", "IAluDgnDataMgr",
        "CDgnAluCodeDlg", "CDgnAluMatDlg", "Init_tz_aludll",
    }


def resource(wine, number):
    done = wine.run(BIN / "module_loader.exe", "resource", windows_path(MODULE), number)
    assert done.returncode == 0, done.stdout
    return bytes.fromhex(done.stdout)


def test_a_resource_is_the_modules_name_in_six_bytes(wine):
    assert resource(wine, 65533) == b"tz_alu"


def test_a_resource_is_the_symbols_as_utf_16_with_a_mark_and_windows_line_ends(wine):
    source = (ROOT / "tz_alu" / "dialogs" / "resource.h").read_text()
    symbols = re.findall(r"^#define (\w+) (\d+)$", source, re.MULTILINE)
    assert ("IDOK", "1") in symbols and len(symbols) > 40
    text = "".join(f"#define {name} {number}\r\n" for name, number in symbols)
    assert resource(wine, 65534) == b"\xff\xfe" + text.encode("utf-16-le")


def test_loading_and_unloading_a_hundred_times_leaves_nothing_in_memory(wine):
    done = wine.run(BIN / "module_loader.exe", "load", windows_path(MODULE), 100)
    assert done.stdout.strip() == "loaded 100 times, pieces more since the middle: 0"


def test_a_framework_that_does_not_start_the_module_makes_windows_refuse_it(wine, tmp_path):
    for file in (MODULE, BIN / "module_loader.exe", BIN / "refusing" / HOST.name):
        shutil.copy(file, tmp_path)
    done = wine.run(tmp_path / "module_loader.exe", "refuse", windows_path(tmp_path / MODULE.name))
    # The program goes on, with Windows' own ERROR_DLL_INIT_FAILED.
    assert (done.returncode, done.stdout.strip()) == (0, "refused: error 1114")


def test_the_same_library_beside_the_right_framework_is_not_refused(wine, tmp_path):
    for file in (MODULE, BIN / "module_loader.exe", HOST):
        shutil.copy(file, tmp_path)
    done = wine.run(tmp_path / "module_loader.exe", "refuse", windows_path(tmp_path / MODULE.name))
    assert (done.returncode, done.stdout.strip()) == (1, "loaded: error 0")
