"""What leaves the shared library of the design module, and what loading and unloading it does."""

import os
import re
import subprocess
from pathlib import Path

BUILD = Path(os.environ["ALUFRAME_BUILD_DIR"])
MODULE = BUILD / "lib" / "libtz_alu.so"
SUPPRESSIONS = Path(__file__).resolve().parent / "valgrind.supp"
LOADER = BUILD / "bin" / "load_module"
REFUSING_FRAMEWORK = BUILD / "lib" / "librefusing_framework.so"

RECORDS = {
    "ALU_DGN_DATA", "ALU_DGN_DATA_CODE", "ALU_SECT_DATA", "ALU_MATL_DATA", "ALU_PARA_DATA",
    "ALU_DGN_MEMB", "ALU_CAL_REPORT", "ALU_CAL_BUFF", "AluDgnEndForce", "AluDgnSectForce",
}
# The engine, and the writer of its report that it derives from.
ENGINE = {"CALUCode_GB50429_07", "CALU_GB50429_07Print", "CALUPrint"}
MANAGER = {"IAluDgnDataMgr"}
DIALOGS = {"CDgnAluCodeDlg", "CDgnAluMatDlg"}
ENTRY = "Init_tz_aludll"

# What a host calls: every one of them must be there.
CALLED = {
    "IAluDgnDataMgr::Instance()",
    "IAluDgnDataMgr::CheckCode(CArray<unsigned int> const*)",
    "IAluDgnDataMgr::MakeReport(CArray<unsigned int> const*, CString)",
    "IAluDgnDataMgr::MakeReport(unsigned int)",
    "CALUCode_GB50429_07::CheckCode(ALU_DGN_DATA const&, AluDgnSectForce const&, T_RALU_SECT&)",
    "CALUCode_GB50429_07::CheckCode(ALU_DGN_DATA const&, AluDgnSectForce const&, T_RALU_SECT&, "
    "ALU_CAL_BUFF&)",
    "CDgnAluCodeDlg::CDgnAluCodeDlg(CWnd*)",
    "CDgnAluMatDlg::CDgnAluMatDlg(CWnd*)",
    ENTRY,
}


def exported():
    lines = subprocess.run(
        ["nm", "-D", "--defined-only", "-C", str(MODULE)], capture_output=True, text=True,
        check=True,
    ).stdout.splitlines()
    return {line.split(maxsplit=2)[2] for line in lines}


def owner(symbol):
    """The class that a symbol belongs to, or the symbol itself."""
    match = re.match(r"(?:vtable for |typeinfo for |typeinfo name for )?(\w+)", symbol)
    return match.group(1) if match else symbol


def test_the_module_exports_records_manager_dialogs_engine_and_entry_and_nothing_else():
    owners = {owner(symbol) for symbol in exported()}
    assert owners == RECORDS | ENGINE | MANAGER | DIALOGS | {ENTRY}


def test_everything_that_a_host_calls_is_exported():
    assert CALLED - exported() == set()


def test_no_formula_or_template_of_the_standard_library_is_exported():
    assert [symbol for symbol in exported() if "alu_" in symbol or "std::" in owner(symbol)] == []


def valgrind(*command):
    return subprocess.run(
        ["valgrind", "-q", "--leak-check=full", "--errors-for-leak-kinds=definite,indirect",
         "--error-exitcode=9", f"--suppressions={SUPPRESSIONS}", *command],
        capture_output=True, text=True, check=False,
    )


def test_loading_and_unloading_a_thousand_times_leaks_nothing():
    done = valgrind(str(LOADER), str(MODULE), "1000")
    assert done.returncode == 0, done.stdout + done.stderr
    assert done.stdout == "loaded and unloaded 1000 times\n"


def test_the_leak_check_sees_a_leak():
    done = valgrind(str(LOADER), str(MODULE), "2", "--leak")
    assert done.returncode == 9, done.stdout + done.stderr


def test_a_framework_that_does_not_start_the_module_makes_loading_fail_with_a_message():
    environment = dict(os.environ, LD_PRELOAD=str(REFUSING_FRAMEWORK))
    done = subprocess.run(
        [str(LOADER), str(MODULE), "1"], capture_output=True, text=True, check=False,
        env=environment,
    )
    assert done.returncode != 0
    assert done.stdout == ""
    assert "tz_alu: the framework did not start the extension module" in done.stderr
