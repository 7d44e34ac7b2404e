"""Sources ask nowhere which system they are compiled for: what systems differ in stands in folders of their own."""

import re
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]

# Libraries of Windows mark what they export by words that other compilers do not know.
EXPORTS = {"host/host_api.h", "tz_alu/tz_alu_api.h"}
SYSTEMS = re.compile(r"^\s*#\s*(?:el)?if.*\b(_WIN32|WIN32|_WIN64|__MINGW\w*|__linux__|__unix__|_POSIX\w*)\b", re.MULTILINE)


def test_no_source_asks_for_the_system():
    sources = [path for folder in ("host", "tz_alu", "aluframe", "apps") for kind in ("*.h", "*.cpp")
               for path in (ROOT / folder).rglob(kind)]
    assert len(sources) > 500
    asking = {str(path.relative_to(ROOT)) for path in sources if SYSTEMS.search(path.read_text(encoding="utf-8"))}
    assert asking == EXPORTS
