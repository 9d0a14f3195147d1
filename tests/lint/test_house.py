"""The rules of the house that a compiler does not check."""

import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parents[2]
SRC = ROOT / "src"

FLOORS = [
    {"base"},
    {"engine", "automation"},
    {"textfiles"},
    {"documents", "jet"},
    {"word", "database"},
    {"console", "controls"},
    {"clipboard"},
    {"shell"},
]
FLOOR = {folder: level for level, folders in enumerate(FLOORS) for folder in folders}
# The face stands beside the console, not above it; documents and jet are reached by name.
FORBIDDEN = {
    "word": {"documents", "jet"},
    "database": {"documents", "jet"},
    "controls": {"console"},
    "clipboard": {"console"},
    "shell": {"console"},
}

SOURCES = sorted(p for p in SRC.rglob("*") if p.suffix in (".cpp", ".h"))
OURS = SOURCES + sorted(
    p for folder in ("tests", "bench", "tools") for p in (ROOT / folder).rglob("*") if p.suffix in (".cpp", ".h")
)


def includes(path):
    return re.findall(r'^\s*#\s*include\s+"([^"]+)"', path.read_text(encoding="utf-8"), re.M)


def test_floors():
    wrong = []
    for path in SOURCES:
        folder = path.relative_to(SRC).parts[0]
        for name in includes(path):
            other = name.split("/")[0]
            if other not in FLOOR:
                wrong.append(f"{path}: {name} is not told from src/")
                continue
            same_level_other_folder = FLOOR[other] == FLOOR[folder] and other != folder
            if FLOOR[other] > FLOOR[folder] or same_level_other_folder or other in FORBIDDEN.get(folder, ()):
                wrong.append(f"{path}: may not include {name}")
    assert not wrong, "\n".join(wrong)


def test_named_tests_exist():
    wrong = []
    for path in SOURCES:
        told = re.search(r"// Tested by((?:.|\n// )*?)\.\n", path.read_text(encoding="utf-8"))
        for name in re.findall(r"[\w*]+\.(?:cpp|py)", told[1]) if told else ():
            if not any((ROOT / "tests").rglob(name)):
                wrong.append(f"{path}: {name}")
    assert not wrong, "\n".join(wrong)


def test_include_names_are_exact():
    names = {str(p.relative_to(SRC)) for p in SOURCES}
    wrong = [f"{p}: {n}" for p in SOURCES for n in includes(p) if n not in names]
    assert not wrong, "\n".join(wrong)


def test_own_header_first():
    wrong = []
    for path in SOURCES:
        if path.suffix != ".cpp":
            continue
        stem = re.sub(r"_(win|portable)$", "", path.stem)
        own = f"{path.parent.relative_to(SRC)}/{stem}.h"
        if (SRC / own).exists():
            first = re.search(r'^\s*#\s*include\s+["<]([^">]+)', path.read_text(encoding="utf-8"), re.M)
            if not first or first.group(1) != own:
                wrong.append(str(path))
    assert not wrong, "\n".join(wrong)


def test_headers_guard_themselves():
    wrong = [str(p) for p in OURS if p.suffix == ".h" and "#pragma once" not in p.read_text(encoding="utf-8")]
    assert not wrong, "\n".join(wrong)


def test_windows_h_comes_through_one_door():
    wrong = [
        str(p)
        for p in OURS
        if re.search(r'#\s*include\s*[<"]windows\.h', p.read_text(encoding="utf-8"), re.I) and p.name != "win.h"
    ]
    assert not wrong, "\n".join(wrong)


def test_no_platform_tests_in_sources():
    wrong = [str(p) for p in SOURCES if re.search(r"#\s*(if|ifdef|ifndef|elif).*_WIN32", p.read_text(encoding="utf-8"))]
    assert not wrong, "\n".join(wrong)


def test_files_are_short():
    long = [f"{p}: {n}" for p in SOURCES if (n := p.read_text(encoding="utf-8").count("\n")) > 800]
    assert not long, "\n".join(long)


def test_documents_lead_somewhere():
    pages = [ROOT / "README.md", ROOT / "CHANGELOG.md", *sorted((ROOT / "docs").rglob("*.md"))]
    links = [(page, link) for page in pages for link in re.findall(r"\]\(([^)#\s]+)", page.read_text(encoding="utf-8"))]
    assert len(links) > 10
    dead = [f"{p}: {l}" for p, l in links if not l.startswith("https://") and not (p.parent / l).exists()]
    assert not dead, "\n".join(dead)


def test_format():
    files = [str(p) for p in OURS]
    made = subprocess.run(["clang-format", "--dry-run", "-Werror", *files], capture_output=True, text=True)
    assert made.returncode == 0, made.stderr[:3000]


def test_every_event_is_tried_with_a_throwing_handler():
    tried = (ROOT / "tests/windows/failures_events_test.cpp").read_text(encoding="utf-8")
    missing = []
    for path in sorted((SRC / "controls").glob("*.h")):
        owner = None
        text = path.read_text(encoding="utf-8")
        for found in re.finditer(r"^(?:class|struct) (\w+)[^;]*?\{|^    std::function<void\([^;]*?\)>\s+([\w, ]+);", text, re.M):
            owner = found[1] or owner
            for event in (found[2] or "").split(","):
                if event and f'"{owner}.{event.strip()}"' not in tried:
                    missing.append(f"{path}: {owner}.{event.strip()}")
    assert not missing, "\n".join(missing)
