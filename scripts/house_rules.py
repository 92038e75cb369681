#!/usr/bin/env python3
"""Rules of this house that neither the compilers nor clang-tidy know. Prints each breach; exits 1 on any."""

import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent

# (what it finds, where it looks, where it is allowed, why it is a breach)
RULES = [
    (r"setStyleSheet\s*\(", r"^src/", None, "style sheets bypass BrandStyle"),
    (r"\.exec\(\)|->exec\(\)", r"^src/", r"^src/main\.cpp$", "a nested event loop; questions are awaited"),
    (r"QColor\s*\(\s*[\"0-9]|QColor\s*\{\s*[\"0-9]|Qt::(red|green|blue|gray|lightGray|darkGray|yellow)\b",
     r"^src/(Views|Utilities)/", None, "a raw colour; colours come from Brand"),
    (r"QMessageBox::", r"^src/", None, "message boxes interpret text; use AlertDialog"),
    (r"\bnew QLabel\b", r"^src/", r"^src/Utilities/", "labels guess rich text; use PlainLabel"),
    (r"QNetworkAccessManager", r"^src/", None, "WebSession is the one thing that touches the network"),
    (r"::shared\(\)", r"^src/(?!main|QuorvelMacApp)", r"(NotificationCenter|AppRouter)\.(h|cpp)$",
     "only the entry speaks of shared objects"),
    (r"std::this_thread::sleep_for|QThread::m?sleep|\busleep\(|QTest::qWait\(", r"^(src|bridge|tests)/", None,
     "a sleep; wait for the thing itself"),
    # GCC 12 miscompiles these forms of temporaries inside a co_await statement.
    (r"co_await[^;]*\{[^}]*\}", r"^src/", None, "a braced temporary in a co_await statement; name it first"),
    (r"co_await[^;]*\[[^\]]*[&=\w][^\]]*\]\s*(\(|\{)", r"^src/", None,
     "a capturing lambda in a co_await statement; name it first"),
    (r"(if|switch|while)\s*\(\s*co_await", r"^src/", None, "name the awaited result first"),
    (r"\b(TODO|FIXME|XXX)\b", r"^(src|bridge|tests|benchmarks|fuzz|scripts|cmake)/", r"house_rules\.py$",
     "unfinished work belongs in the tracker"),
]

LONGEST_FILE = 500


def tracked_sources():
    listing = subprocess.run(
        ["git", "ls-files", "-co", "--exclude-standard", "--", "*.cpp", "*.h", "*.py", "scripts/*"],
        cwd=ROOT, check=True, capture_output=True, text=True)
    return [line for line in listing.stdout.splitlines() if (ROOT / line).is_file()]


def breaches(path, text):
    for pattern, where, allowed, why in RULES:
        if not re.search(where, path) or (allowed and re.search(allowed, path)):
            continue
        for match in re.finditer(pattern, text):
            yield text.count("\n", 0, match.start()) + 1, why
    length = text.count("\n")
    if length > LONGEST_FILE:
        yield length, f"{length} lines; a file has one subject and at most {LONGEST_FILE}"


def main():
    found = [f"{path}:{line}: {why}"
             for path in tracked_sources()
             for line, why in breaches(path, (ROOT / path).read_text(encoding="utf-8"))]
    print("\n".join(found), end="\n" if found else "")
    sys.exit(1 if found else 0)


if __name__ == "__main__":
    main()
