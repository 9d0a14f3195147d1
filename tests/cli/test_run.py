"""./run with files of one's own."""

import subprocess

from conftest import ROOT, names, utf16, write

LEGACY = "Avgvi evsjv\r\n"
UNICODE = "\u0986\u09ae\u09be\u09b0 \u09ac\u09be\u0982\u09b2\u09be\r\n"


def run(*arguments, cwd):
    return subprocess.run([ROOT / "run", *arguments], cwd=cwd, capture_output=True, timeout=300)


def test_a_file_of_ones_own(native, tmp_path):
    """Names are meant where the person stands; what stands is not built again."""
    assert native.path == ROOT / "build/native/zorvak", "./run works with the program of the preset native"
    built = native.path.stat().st_mtime_ns
    write(tmp_path / "a letter.txt", LEGACY)
    result = run("a letter.txt", cwd=tmp_path)
    assert (result.returncode, result.stderr) == (0, b""), result
    assert result.stdout == f"{tmp_path}/a letter.txt -> {tmp_path}/a letter- Unicode.txt\n".encode()
    assert (tmp_path / "a letter- Unicode.txt").read_bytes() == utf16(UNICODE)
    assert native.path.stat().st_mtime_ns == built


def test_the_encoding_is_told_with_from(native, tmp_path):
    sample = (ROOT / "data/samples/Alpona.txt").read_bytes()
    write(tmp_path / "a.txt", sample)
    assert run("a.txt", "--from", "Alpona", cwd=tmp_path).returncode == 0
    told = (ROOT / "tests/golden/samples/Alpona.expected.txt").read_text(encoding="utf-8")
    assert (tmp_path / "a- Unicode.txt").read_bytes().decode("utf-16").splitlines() == told.splitlines()


def test_a_file_that_is_missing_and_an_encoding_that_is(native, tmp_path):
    assert run("missing.txt", cwd=tmp_path).returncode == 1
    write(tmp_path / "a.txt", LEGACY)
    assert run("a.txt", "--from", "Nobody", cwd=tmp_path).returncode == 2
    assert names(tmp_path) == ["a.txt"]
