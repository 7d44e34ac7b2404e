"""Takes the pictures of the dialogs on Windows for the documentation.

    /usr/bin/python3 tests/windows/dialogs_pictures.py docs/images
"""

import re
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import module_wine
from dialogs_test import CODE, MATERIALS, MATERIALS_SIZE, User
from module_wine import BIN, ROOT, windows_path


def messages(language):
    """The program's texts of the module's keys, a line each."""
    source = (ROOT / "aluframe" / "services" / "messages.cpp").read_text(encoding="utf-8")
    english = re.findall(r'\{L"(\w+)",\s*translatable\("([^"]*)"\)\}', source)
    po = (ROOT / "aluframe" / "texts" / "zh_CN.po").read_text(encoding="utf-8")
    chinese = dict(re.findall(r'^msgid "(.+)"\nmsgstr "(.+)"$', po, re.MULTILINE))
    return "".join(
        f"{key}={chinese[text] if language == 'zh' else text}\n" for key, text in english)


def take(user, screen, title, file):
    time.sleep(0.5)  # until all is drawn
    screen.take_picture(file, user.place(title))


def take_all(wine, screen, folder, language, texts):
    file = Path(tempfile.gettempdir()) / f"texts-{language}"
    file.write_text(texts, encoding="utf-8")
    user = User(wine, screen, BIN / "module_window.exe", windows_path(file), cwd=file.parent)
    user.sees("Tiny frame")
    user.press("alt+a", "d")
    user.sees(CODE)
    take(user, screen, CODE, folder / f"windows-code-{language}.png")
    user.press("Return")
    user.sees("settings 1 ratio 0.850")
    user.press("alt+a", "t")
    user.sees(MATERIALS)
    user.click(MATERIALS, MATERIALS_SIZE, 30, 36)
    take(user, screen, MATERIALS, folder / f"windows-materials-{language}.png")
    user.press("Escape")
    user.press("alt+a", "q")
    user.ends()
    file.unlink()


def main(folder):
    screen = module_wine.Screen()
    kept, wine = module_wine.temporary_wine(screen.display)
    wine.set_value(r"HKCU\Software\Wine\X11 Driver", "Managed", "N")
    # Where the dialogs' font takes characters from that it lacks; Windows itself knows that.
    wine.set_value(
        r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink", "Tahoma",
        "NotoSansCJK-Regular.ttc,Noto Sans CJK SC", kind="REG_MULTI_SZ")
    try:
        for language in ("en", "zh"):
            take_all(wine, screen, Path(folder), language, messages(language))
    finally:
        wine.end()
        screen.end()
        kept.cleanup()
    subprocess.run(["file", *sorted(Path(folder).glob("windows-*.png"))], check=True)


if __name__ == "__main__":
    main(sys.argv[1])
