"""Takes the pictures of the dialogs on Windows for the documentation, of `aluframe dialogs` in both languages.

    /usr/bin/python3 tests/windows/dialogs_pictures.py docs/images
"""

import shutil
import subprocess
import sys
import tempfile
import time
from pathlib import Path

import module_wine
from module_wine import ROOT
from program_dialogs_test import IN_CHINESE, works_in
from program_wine import windows_program
from screen_user import CODE, MATERIALS, MATERIALS_SIZE, User


def take(user, screen, title, file):
    time.sleep(0.5)  # until all is drawn
    screen.take_picture(file, user.place(title))


def take_all(wine, screen, model, folder, language):
    code, materials = (title if language == "en" else IN_CHINESE[title] for title in (CODE, MATERIALS))
    user = User(wine, screen, windows_program(), "dialogs", model.name, "--lang", language, cwd=model.parent)
    works_in(user, code)
    take(user, screen, code, folder / f"windows-code-{language}.png")
    user.press("Escape")
    works_in(user, materials)
    user.click(materials, MATERIALS_SIZE, 30, 36)
    take(user, screen, materials, folder / f"windows-materials-{language}.png")
    user.press("Escape")
    user.ends()


def main(folder):
    screen = module_wine.Screen()
    kept, wine = module_wine.temporary_wine(screen.display)
    wine.set_value(r"HKCU\Software\Wine\X11 Driver", "Managed", "N")
    # Where the dialogs' font takes characters from that it lacks; Windows itself knows that.
    for font in ("Tahoma", "Tahoma Bold"):
        wine.set_value(
            r"HKLM\Software\Microsoft\Windows NT\CurrentVersion\FontLink\SystemLink", font,
            "NotoSansCJK-Regular.ttc,Noto Sans CJK SC", kind="REG_MULTI_SZ")
    model = Path(shutil.copy(ROOT / "examples" / "portal-bracket.json", kept.name))
    try:
        for language in ("en", "zh"):
            take_all(wine, screen, model, Path(folder), language)
    finally:
        wine.end()
        screen.end()
        kept.cleanup()
    subprocess.run(["file", *sorted(Path(folder).glob("windows-*.png"))], check=True)


if __name__ == "__main__":
    main(sys.argv[1])
