"""What an installation puts where: each part has its files and no others, and desktops and man can read them."""

import os
import re
import shutil
import subprocess
from pathlib import Path

import pytest

ROOT = Path(__file__).resolve().parents[2]
BUILD = Path(os.environ["ALUFRAME_BUILD_DIR"])
CACHE = dict(re.findall(r"^(\w+):\w+=(.*)$", (BUILD / "CMakeCache.txt").read_text(encoding="utf-8"), re.M))
LIB = CACHE["CMAKE_INSTALL_LIBDIR"]
VERSION = CACHE["CMAKE_PROJECT_VERSION"]
MODEL_TYPE = "application/vnd.aluframe.model+json"

EXAMPLES = ["dome.json", "footbridge.json", "mullion-transom.json", "platform-roof.json", "points.jsonl",
            "portal-bracket.json"]
ICONS = [f"share/icons/hicolor/{size}x{size}/apps/aluframe.png" for size in (16, 24, 32, 48, 64, 128, 256)]
FILES = {
    "program": {
        "bin/aluframe",
        f"{LIB}/libaluhost.so.0", f"{LIB}/libaluhost.so.{VERSION}",
        f"{LIB}/libtz_alu.so.0", f"{LIB}/libtz_alu.so.{VERSION}",
        "share/man/man1/aluframe.1.gz",
        "share/doc/aluframe/README.md", "share/doc/aluframe/README.zh-CN.md", "share/doc/aluframe/CHANGELOG.md",
        *(f"share/doc/aluframe/examples/{name}" for name in EXAMPLES),
        "share/aluframe/schema/aluframe-model.schema.json",
    },
    "desktop": {
        "bin/aluframe-desktop",
        "share/man/man1/aluframe-desktop.1.gz",
        "share/applications/aluframe-desktop.desktop",
        "share/mime/packages/aluframe.xml",
        "share/icons/hicolor/scalable/apps/aluframe.svg", *ICONS,
    },
    "development": {
        f"{LIB}/libaluhost.so", f"{LIB}/libtz_alu.so",
        *(f"{LIB}/cmake/aluframe/aluframe-{name}.cmake" for name in ("config", "config-version", "targets")),
        f"{LIB}/cmake/aluframe/aluframe-targets-{CACHE['CMAKE_BUILD_TYPE'].lower()}.cmake",
    },
}
# What is as many files as the documentation and the contract have.
FOLDERS = {"program": "share/doc/aluframe/docs/", "desktop": None, "development": "include/aluframe/"}
# What Debian wants of every package, and `cmake --install` of all parts leaves out.
DEBIAN = re.compile(r"share/doc/[\w-]+/(copyright|changelog\.gz)|share/lintian/overrides/aluframe")

needs_desktop = pytest.mark.skipif(CACHE.get("ALUFRAME_QT") != "ON", reason="built without the desktop program")


def needs(tool):
    return pytest.mark.skipif(shutil.which(tool) is None, reason=f"{tool} is not at hand")


def run(*command, **options):
    done = subprocess.run(command, capture_output=True, text=True, check=False, **options)
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout + done.stderr


def files_below(folder):
    return {path.relative_to(folder).as_posix() for path in folder.rglob("*") if not path.is_dir()}


@pytest.fixture(scope="module", name="prefix")
def installed(tmp_path_factory):
    prefix = tmp_path_factory.mktemp("prefix")
    run("cmake", "--install", str(BUILD), "--prefix", str(prefix))
    return prefix


@pytest.mark.parametrize("part", [
    pytest.param("program"), pytest.param("development"), pytest.param("desktop", marks=needs_desktop)])
def test_a_part_has_its_files_and_no_others(part, tmp_path):
    run("cmake", "--install", str(BUILD), "--prefix", str(tmp_path), "--component", part)
    installed = {name for name in files_below(tmp_path) if not DEBIAN.fullmatch(name)}
    folder = FOLDERS[part]
    assert {name for name in installed if not folder or not name.startswith(folder)} == FILES[part]


def test_the_documentation_is_that_of_the_repository(prefix):
    assert files_below(prefix / "share/doc/aluframe/docs") == files_below(ROOT / "docs")


def test_files_of_debian_packages_stay_out_of_a_common_installation(prefix):
    assert [name for name in files_below(prefix) if DEBIAN.fullmatch(name)] == []


@pytest.mark.skipif(CACHE["CMAKE_BUILD_TYPE"] != "Release", reason="assertions and debug symbols name sources")
def test_no_installed_file_names_the_folder_that_it_was_built_in(prefix):
    named = [name for name in sorted(files_below(prefix)) if str(BUILD).encode() in (prefix / name).read_bytes()]
    assert named == []


@needs("man")
@pytest.mark.parametrize("page", ["aluframe", pytest.param("aluframe-desktop", marks=needs_desktop)])
def test_man_shows_a_page_without_a_warning(prefix, page):
    path = prefix / f"share/man/man1/{page}.1.gz"
    done = subprocess.run(["man", "--warnings", "-l", str(path)], capture_output=True, text=True, check=True,
                          env=os.environ | {"LC_ALL": "C.UTF-8", "MANWIDTH": "100"})
    assert done.stderr == ""
    assert done.stdout.startswith("ALUFRAME")


@needs_desktop
@needs("desktop-file-validate")
def test_the_desktop_entry_is_valid(prefix):
    assert run("desktop-file-validate", str(prefix / "share/applications/aluframe-desktop.desktop")) == ""


@needs_desktop
@needs("update-mime-database")
@needs("gio")
@pytest.mark.parametrize("name, content, expected", [
    ("frame.aluframe.json", "{}", MODEL_TYPE),
    # Without an ending that says it, the content does.
    ("frame", '{\n  "format": "aluframe-model",\n  "version": 1}', MODEL_TYPE),
    ("frame", '{"format":"aluframe-model","version":1}', MODEL_TYPE),
    # Other JSON files stay with their programs, and so does a model whose name only says JSON.
    ("other.json", '{"format": "another"}', "application/json"),
    ("frame.json", '{"format": "aluframe-model"}', "application/json"),
])
def test_files_have_the_type_that_their_name_or_content_says(prefix, tmp_path, name, content, expected):
    share = tmp_path / "share"
    (share / "mime/packages").mkdir(parents=True)
    for source in ("/usr/share/mime/packages/freedesktop.org.xml", prefix / "share/mime/packages/aluframe.xml"):
        shutil.copy(source, share / "mime/packages")
    run("update-mime-database", str(share / "mime"))
    file = tmp_path / name
    file.write_text(content, encoding="utf-8")
    shown = run("gio", "info", "-a", "standard::content-type", str(file), env=os.environ | {
        "XDG_DATA_DIRS": str(share), "XDG_DATA_HOME": str(tmp_path / "home"), "LC_ALL": "C.UTF-8"})
    assert re.search(r"standard::content-type: (.*)", shown)[1] == expected


def test_the_package_has_the_version_of_the_project():
    changelog = (ROOT / "packaging/debian/changelog").read_text(encoding="utf-8")
    assert changelog.startswith(f"aluframe ({VERSION}) ")
