"""The installed module serves a host that knows nothing but the package."""

import os
import subprocess
from pathlib import Path

HERE = Path(__file__).resolve().parent
BUILD = Path(os.environ["ALUFRAME_BUILD_DIR"])


def run(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


def test_a_tiny_host_builds_against_the_installed_package_and_checks_a_pipe(tmp_path):
    prefix = tmp_path / "prefix"
    run("cmake", "--install", str(BUILD), "--prefix", str(prefix))
    run(
        "cmake", "-S", str(HERE / "consumer"), "-B", str(tmp_path / "build"), "-G", "Ninja",
        f"-DCMAKE_PREFIX_PATH={prefix}",
    )
    run("cmake", "--build", str(tmp_path / "build"))
    line = run(str(tmp_path / "build" / "consumer"))

    # By hand: γ0 1.0, Aen = 0.85 · 2827.43 = 2403.3155 mm²; 1e5 N / Aen = 41.609185 N/mm².
    # 6061-T6: f = 200 N/mm².
    # A host without a toolkit shows no dialog: -1.
    assert line == "flag 1 strength 41.609185 200.000000 dialogs -1 -1\n"


def test_the_installed_headers_are_the_contract_and_the_module_only(tmp_path):
    run("cmake", "--install", str(BUILD), "--prefix", str(tmp_path))
    include = tmp_path / "include" / "aluframe"
    assert sorted(entry.name for entry in include.iterdir()) == ["host", "tz_alu"]
    module = include / "tz_alu"
    installed = {str(path.relative_to(module)) for path in module.rglob("*") if path.is_file()}
    # What the module exports, and nothing that would not link.
    assert installed == {
        "tz_alu_api.h", "tolerance.h", "engine/alucode_gb50429_07.h", "manager/dgnaludatamgr.h",
        "report/aluprint.h", "report/report_literals.h", "records/alu_cal.h",
        "records/alu_dgn_data.h", "records/alu_dgn_memb.h", "records/alu_forces.h",
        "dialogs/dgnalucodedlg.h", "dialogs/dgnalumatdlg.h", "module/init_tz_aludll.h",
    }


def test_the_installed_program_runs_from_its_own_prefix(tmp_path):
    run("cmake", "--install", str(BUILD), "--prefix", str(tmp_path))
    assert run(str(tmp_path / "bin" / "aluframe"), "--version").startswith("aluframe ")
