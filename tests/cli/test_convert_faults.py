"""zorvak convert: files that fail while the others go through"""

import os
import resource
import shutil
import subprocess

import pytest

from conftest import FAILING_LINE, names, utf16, write


@pytest.mark.parametrize("name, told", [
    ("missing.txt", "no such file"),
    ("letter.doc", "not supported yet"),
    ("letter.RTF", "not supported yet"),
    ("data.mdb", "not supported yet"),
    ("sheet.xls", "unknown kind"),
    ("letter.docx", "unknown kind"),
    ("a.txt.bak", "unknown kind"),
    ("nodot", "no dot"),
    ("dotted.d/nodot", "no dot"),
    ("empty.txt", "empty"),
    ("markonly.txt", "empty"),
])
def test_a_file_that_fails_does_not_stop_the_others(zorvak, example, tmp_path, name, told):
    bad, good = tmp_path / name, write(tmp_path / "good.txt", "k")
    if not name.startswith("missing"):
        write(bad, {"empty.txt": b"", "markonly.txt": b"\xff\xfe"}.get(name, b"k"))
    before = names(bad.parent)
    result = zorvak.run("convert", "--plugin", example, bad, good)
    assert result.code == 1
    assert zorvak.results(result) == [(good, tmp_path / "good- Unicode.txt")]
    assert zorvak.name(bad) in result.err and told in result.err
    assert [found for found in names(bad.parent) if found != "good- Unicode.txt"] == before


def test_an_empty_operand(zorvak, example):
    result = zorvak.run("convert", "--plugin", example, "")
    assert result.code == 1 and result.out == b""


def test_documents_in_a_folder_fail_too(zorvak, example, tmp_path):
    write(tmp_path / "a.txt", "k")
    write(tmp_path / "b.doc", "k")
    result = zorvak.run("convert", "--plugin", example, tmp_path)
    assert result.code == 1
    assert "b.doc" in result.err and "not supported yet" in result.err
    assert names(tmp_path) == ["a- Unicode.txt", "a.txt", "b.doc"]


def test_a_failing_line_fails_its_file_and_is_named(zorvak, example, tmp_path):
    bad = write(tmp_path / "bad.txt", f"k\r\nk\r\n{FAILING_LINE} \u20ac\x1b\r\nk\r\n")
    good = write(tmp_path / "good.txt", "k")
    result = zorvak.run("convert", "--plugin", example, bad, good)
    assert result.code == 1
    assert zorvak.results(result) == [(good, tmp_path / "good- Unicode.txt")]
    assert zorvak.name(bad) in result.err and "line 3" in result.err
    assert "Invalid procedure call or argument" in result.err and "5" in result.err
    assert FAILING_LINE + " \u20ac<U+001B>" in result.err and "\x1b" not in result.err
    assert not (tmp_path / "bad- Unicode.txt").exists()


def test_keep_going_leaves_the_line_and_converts_the_rest(zorvak, example, tmp_path):
    source = write(tmp_path / "a.txt", f"k\r\n{FAILING_LINE}\r\nk\r\n{FAILING_LINE}\u20ac")
    result = zorvak.run("convert", "--plugin", example, "--keep-going", source)
    assert result.code == 0
    assert (tmp_path / "a- Unicode.txt").read_bytes() == utf16(
        f"\u0995\r\n{FAILING_LINE}\r\n\u0995\r\n{FAILING_LINE}\u20ac")
    assert "line 2" in result.err and "line 4" in result.err and FAILING_LINE in result.err
    assert "2 lines" in result.err


def test_keep_going_with_thousands_of_failing_lines_names_the_first_and_counts_all(zorvak, example, tmp_path):
    source = write(tmp_path / "a.txt", f"{FAILING_LINE}\r\n" * 3000)
    result = zorvak.run("convert", "--plugin", example, "--keep-going", source)
    assert result.code == 0
    assert "3000 lines" in result.err and len(result.err.splitlines()) < 60


def test_a_file_that_cannot_be_read(zorvak, example, tmp_path):
    # Reading this one fails for every user.
    bad, good = tmp_path / "bad.txt", write(tmp_path / "good.txt", "k")
    bad.symlink_to("/proc/self/mem")
    with pytest.raises(OSError):
        bad.read_bytes()
    result = zorvak.run("convert", "--plugin", example, bad, good)
    assert result.code == 1
    assert zorvak.results(result) == [(good, tmp_path / "good- Unicode.txt")]
    assert zorvak.name(bad) in result.err


def test_a_pipe_is_read_once(native, example, tmp_path):
    pipe = tmp_path / "pipe.txt"
    os.mkfifo(pipe)
    with subprocess.Popen(["sh", "-c", 'printf "k\\351" >"$0"', str(pipe)]) as writer:
        result = native.run("convert", "--plugin", example, pipe, timeout=30)
        assert writer.wait(30) == 0
    assert (result.code, result.err) == (0, "")
    assert (tmp_path / "pipe- Unicode.txt").read_bytes() == utf16("\u0995\u00e9")


def test_a_file_without_the_right_to_read_it(native, example, open_folder, unprivileged):
    program = native.installed_in(open_folder / "program")
    bad, good = write(open_folder / "bad.txt", "k"), write(open_folder / "good.txt", "k")
    plugin = shutil.copy(example, open_folder / "plugin.dll")
    os.chmod(plugin, 0o644)
    bad.chmod(0)
    good.chmod(0o644)
    assert subprocess.run(unprivileged + ["cat", str(bad)], capture_output=True).returncode != 0
    completed = subprocess.run(unprivileged + program.command("convert", "--plugin", plugin, bad, good),
                               capture_output=True, timeout=60)
    assert completed.returncode == 1
    assert b"good- Unicode.txt" in completed.stdout
    assert str(bad) in completed.stderr.decode() and b"ermission denied" in completed.stderr
    bad.chmod(0o600)


def test_a_folder_without_the_right_to_write(native, example, open_folder, unprivileged):
    program = native.installed_in(open_folder / "program")
    source = write(open_folder / "closed" / "a.txt", "k")
    plugin = shutil.copy(example, open_folder / "plugin.dll")
    os.chmod(plugin, 0o644)
    source.chmod(0o644)
    source.parent.chmod(0o555)
    assert subprocess.run(unprivileged + ["touch", str(source.parent / "x")], capture_output=True).returncode != 0
    completed = subprocess.run(unprivileged + program.command("convert", "--plugin", plugin, source),
                               capture_output=True, timeout=60)
    assert (completed.returncode, completed.stdout) == (1, b"")
    assert str(source) in completed.stderr.decode() and b"ermission denied" in completed.stderr
    assert names(source.parent) == ["a.txt"]


def test_a_folder_without_the_right_to_list_it(native, example, open_folder, unprivileged):
    program = native.installed_in(open_folder / "program")
    plugin = shutil.copy(example, open_folder / "plugin.dll")
    os.chmod(plugin, 0o644)
    write(open_folder / "closed" / "a.txt", "k").parent.chmod(0o333)
    good = write(open_folder / "good.txt", "k")
    assert subprocess.run(unprivileged + ["ls", str(open_folder / "closed")], capture_output=True).returncode != 0
    completed = subprocess.run(unprivileged + program.command("convert", "--plugin", plugin, open_folder / "closed", good),
                               capture_output=True, timeout=60)
    assert completed.returncode == 1
    assert b"good- Unicode.txt" in completed.stdout
    assert str(open_folder / "closed") in completed.stderr.decode() and b"ermission denied" in completed.stderr


def test_a_file_larger_than_the_memory(native, example, tmp_path):
    big, good = write(tmp_path / "big.txt", b"k" * 60_000_000), write(tmp_path / "good.txt", "k")
    result = native.run("convert", "--plugin", example, big, good,
                        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (90_000_000, 90_000_000)))
    assert result.code == 1
    assert native.results(result) == [(good, tmp_path / "good- Unicode.txt")]
    assert str(big) in result.err and "ut of memory" in result.err
    assert names(tmp_path) == ["big.txt", "good- Unicode.txt", "good.txt"]


def test_a_full_disk(zorvak, example, tmp_path):
    disk = tmp_path / "disk"
    disk.mkdir()
    if subprocess.run(["mount", "-t", "tmpfs", "-o", "size=64k", "none", str(disk)], capture_output=True).returncode:
        pytest.skip("this machine gives no right to mount a small disk")
    try:
        with pytest.raises(OSError):
            (disk / "probe").write_bytes(b"x" * 200000)
        (disk / "probe").unlink()
        big, small = write(tmp_path / "big.txt", "k" * 100000), write(tmp_path / "small.txt", "k")
        result = zorvak.run("convert", "--plugin", example, big, small, "--folder", disk)
        assert result.code == 1
        assert zorvak.results(result) == [(small, disk / "small- Unicode.txt")]
        assert zorvak.name(big) in result.err
        assert names(disk) == ["small- Unicode.txt"]
    finally:
        subprocess.run(["umount", str(disk)], check=True)
