"""zorvak convert"""

import os
import pathlib
import re
import shutil
import subprocess

import pytest

from conftest import EXAMPLE_LEGACY, EXAMPLE_UNICODE, FAILING_LINE, program_of, run_on_terminal, utf16


def write(path, content):
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_bytes(content if isinstance(content, bytes) else content.encode("cp1252"))
    return path


def names(folder):
    return sorted(path.name for path in folder.iterdir())


# --- A file that goes through


def test_the_result_stands_beside_the_source(zorvak, example, tmp_path):
    source = write(tmp_path / "Report.txt", f"{EXAMPLE_LEGACY}\r\nkh\r\n")
    result = zorvak.run("convert", "--plugin", example, source)
    made = tmp_path / "Report- Unicode.txt"
    assert (result.code, result.err) == (0, "")
    assert zorvak.results(result) == [(source, made)]
    assert made.read_bytes() == utf16(f"{EXAMPLE_UNICODE}\r\n\u0996\r\n")
    assert source.read_bytes() == f"{EXAMPLE_LEGACY}\r\nkh\r\n".encode()
    assert names(tmp_path) == ["Report- Unicode.txt", "Report.txt"]


@pytest.mark.parametrize("text, converted", [
    ("k", "\u0995"),  # no line end: none is added
    ("k\r\n", "\u0995\r\n"),
    ("\r\n\r\n", "\r\n\r\n"),
    ("k\nk\rk", "\u0995\n\u0995\r\u0995"),  # one line
])
def test_lines_are_cut_at_cr_lf_only(zorvak, example, tmp_path, text, converted):
    result = zorvak.run("convert", "--plugin", example, write(tmp_path / "a.txt", text))
    assert result.code == 0
    assert (tmp_path / "a- Unicode.txt").read_bytes() == utf16(converted)


def test_a_taken_name_gets_the_next_number(zorvak, example, tmp_path):
    source = write(tmp_path / "a.txt", "k")
    write(tmp_path / "a- Unicode.txt", "old")
    write(tmp_path / "a- Unicode - 1.txt", "old")
    result = zorvak.run("convert", "--plugin", example, source)
    assert zorvak.results(result) == [(source, tmp_path / "a- Unicode - 2.txt")]
    assert (tmp_path / "a- Unicode.txt").read_bytes() == b"old"
    assert (tmp_path / "a- Unicode - 1.txt").read_bytes() == b"old"


def test_the_same_file_twice_gives_two_results(zorvak, example, tmp_path):
    source = write(tmp_path / "a.txt", "k")
    result = zorvak.run("convert", "--plugin", example, source, source)
    assert result.code == 0
    assert zorvak.results(result) == [(source, tmp_path / "a- Unicode.txt"),
                                      (source, tmp_path / "a- Unicode - 1.txt")]


def test_files_are_converted_in_the_order_given(zorvak, example, tmp_path):
    sources = [write(tmp_path / name, "k") for name in ["c.txt", "a.txt", "b.txt"]]
    result = zorvak.run("convert", "--plugin", example, *sources)
    assert [source for source, _ in zorvak.results(result)] == sources


@pytest.mark.parametrize("name, made", [
    ("a.TXT", "a- Unicode.TXT"),
    ("a.b.Txt", "a.b- Unicode.Txt"),
    (".txt", "- Unicode.txt"),
    ("-a.txt", "-a- Unicode.txt"),
    ("\u09ac\u09be\u0982\u09b2\u09be \u09b2\u09c7\u0996\u09be.txt",
     "\u09ac\u09be\u0982\u09b2\u09be \u09b2\u09c7\u0996\u09be- Unicode.txt"),
    ("\U0001f600 e\u0301.txt", "\U0001f600 e\u0301- Unicode.txt"),
])
def test_names_of_results(zorvak, example, tmp_path, name, made):
    source = write(tmp_path / name, "k")
    result = zorvak.run("convert", "--plugin", example, source)
    assert (result.code, result.err) == (0, "")
    assert zorvak.results(result) == [(source, tmp_path / made)]
    assert (tmp_path / made).read_bytes() == utf16("\u0995")


def test_relative_paths_are_made_absolute(zorvak, example, tmp_path):
    source = write(tmp_path / "dir.d" / "a.txt", "k")
    result = zorvak.run("convert", "--plugin", example, "a.txt", cwd=tmp_path / "dir.d")
    assert zorvak.results(result) == [(source, tmp_path / "dir.d" / "a- Unicode.txt")]
    (tmp_path / "other").mkdir()
    result = zorvak.run("convert", "--plugin", example, "../dir.d/./a.txt", cwd=tmp_path / "other")
    (told, made), = zorvak.results(result)
    assert (told.resolve(), made.resolve()) == (source, tmp_path / "dir.d" / "a- Unicode - 1.txt")


@pytest.fixture
def windows():
    return program_of("windows")


def test_patterns_are_expanded_where_the_command_prompt_does_not(windows, example, tmp_path):
    for name in ["a.txt", "\u0995.TXT", "b.md"]:
        write(tmp_path / name, "k")
    result = windows.run("convert", "--plugin", example, "*.txt", cwd=tmp_path)
    assert result.code == 0, result
    assert sorted(source.name for source, _ in windows.results(result)) == ["a.txt", "\u0995.TXT"]
    result = windows.run("convert", "--plugin", example, "none*.txt", cwd=tmp_path)
    assert result.code == 1 and "none*.txt" in result.err


def test_long_path_notation(windows, example, tmp_path):
    source = write(tmp_path / "a.txt", "k")
    result = windows.run("convert", "--plugin", example, "\\\\?\\" + windows.name(source))
    assert result.code == 0, result
    assert (tmp_path / "a- Unicode.txt").exists()


def test_an_operand_that_looks_like_an_option(zorvak, example, tmp_path):
    write(tmp_path / "--from.txt", "k")
    result = zorvak.run("convert", "--plugin", example, "--", "--from.txt", cwd=tmp_path)
    assert result.code == 0
    assert (tmp_path / "--from- Unicode.txt").exists()


def test_very_long_paths(zorvak, example, tmp_path):
    folder = tmp_path
    while len(str(folder)) < 700:
        folder = folder / ("\u09ac\u09be\u0982\u09b2\u09be" * 8)
    source = write(folder / "a.txt", "k")
    result = zorvak.run("convert", "--plugin", example, source)
    assert (result.code, result.err) == (0, "")
    assert (folder / "a- Unicode.txt").read_bytes() == utf16("\u0995")


def test_a_name_that_is_not_utf8_comes_through_unharmed(native, example, tmp_path):
    source = os.fsencode(tmp_path) + b"/\xe0\xa6\x95\xff\xe0\xa6.txt"
    with open(source, "wb") as file:
        file.write(b"k")
    result = native.run("convert", "--plugin", str(example), source)
    made = os.fsencode(tmp_path) + b"/\xe0\xa6\x95\xff\xe0\xa6- Unicode.txt"
    assert (result.code, result.out) == (0, source + b" -> " + made + b"\n")
    assert os.path.exists(made)


# --- Options


def test_folder(zorvak, example, tmp_path):
    source = write(tmp_path / "from" / "a.txt", "k")
    (tmp_path / "to").mkdir()
    for made in ["a- Unicode.txt", "a- Unicode - 1.txt"]:
        result = zorvak.run("convert", "--plugin", example, source, "--folder", tmp_path / "to")
        assert zorvak.results(result) == [(source, tmp_path / "to" / made)]
    assert names(tmp_path / "from") == ["a.txt"]


def test_folder_relative_and_with_a_separator_behind_it(zorvak, example, tmp_path):
    write(tmp_path / "a.txt", "k")
    (tmp_path / "to").mkdir()
    result = zorvak.run("convert", "--plugin", example, "a.txt", "--folder=to/", cwd=tmp_path)
    assert result.code == 0, result
    assert names(tmp_path / "to") == ["a- Unicode.txt"]


@pytest.mark.parametrize("suffix, made", [("_u", "a_u.txt"), ("", "a - 1.txt"), (" - 1", "a - 1.txt"),
                                          ("\u0995", "a\u0995.txt")])
def test_suffix(zorvak, example, tmp_path, suffix, made):
    source = write(tmp_path / "a.txt", "k")
    result = zorvak.run("convert", "--plugin", example, "--suffix=" + suffix, source)
    assert zorvak.results(result) == [(source, tmp_path / made)]


@pytest.mark.parametrize("encoding, content, converted", [
    ("auto", b"k\x80", "\u0995\u20ac"),
    ("auto", b"\xff\xfek\x00\x95\x09", "\u0995\u0995"),
    ("ansi", b"\xff\xfek", "\u00ff\u00fe\u0995"),
    ("utf-16", b"k\x00\x95\x09", "\u0995\u0995"),
    ("utf-16", b"\xff\xfek\x00", "\u0995"),
    ("utf-16", b"k\x00k", "\u0995\ufffd"),
    ("UTF-16", b"k\x00", "\u0995"),
    ("ansi", b"\x81\x8d\x8f\x90\x9d", "\u0081\u008d\u008f\u0090\u009d"),
])
def test_encoding(zorvak, example, tmp_path, encoding, content, converted):
    result = zorvak.run("convert", "--plugin", example, "--encoding", encoding, write(tmp_path / "a.txt", content))
    assert (result.code, result.err) == (0, "")
    assert (tmp_path / "a- Unicode.txt").read_bytes() == utf16(converted)


def test_utf8_read_as_ansi_is_warned_of(zorvak, example, tmp_path):
    for content in ["\u0995".encode(), b"\xef\xbb\xbfk", b"k" * 100000 + "\u0995".encode()]:
        source = write(tmp_path / "a.txt", content)
        for options in [[], ["--encoding=ansi"]]:
            result = zorvak.run("convert", "--plugin", example, source, *options)
            assert result.code == 0
            assert "warning" in result.err and "zorvak text --input utf-8" in result.err
            assert zorvak.name(source) in result.err
            assert len(zorvak.results(result)) == 1


def test_big_endian_read_as_ansi_is_warned_of(zorvak, example, tmp_path):
    source = write(tmp_path / "a.txt", b"\xfe\xff\x00k")
    result = zorvak.run("convert", "--plugin", example, source)
    assert result.code == 0
    assert "warning" in result.err and "big-endian" in result.err and "--encoding utf-16" in result.err
    assert (tmp_path / "a- Unicode.txt").read_bytes() == utf16("\u00fe\u00ff\0\u0995")


@pytest.mark.parametrize("content, encoding", [
    (b"plain", "auto"), (b"\xe0\xa6\x95\xff", "auto"), (b"\xff\xfe\x95\x09", "auto"), (b"\xff\xfe\xc3\xa9", "auto"),
    (b"\xe0\xa6\x95\x09", "utf-16"), (b"\xfe\xff\x09\x95", "utf-16")])
def test_nothing_else_is_warned_of(zorvak, example, tmp_path, content, encoding):
    source = write(tmp_path / "a.txt", content)
    result = zorvak.run("convert", "--plugin", example, source, "--encoding", encoding)
    assert (result.code, result.err) == (0, "")


# --- Folders


def test_a_folder_is_the_text_files_directly_in_it(zorvak, example, tmp_path):
    for name in ["b.txt", "a.TXT", "\u0995.txt", "sub/c.txt", "notes.md", "none"]:
        write(tmp_path / name, "k")
    (tmp_path / "folder.txt").mkdir()
    result = zorvak.run("convert", "--plugin", example, tmp_path)
    assert result.code == 0, result
    assert [source.name for source, _ in zorvak.results(result)] == ["a.TXT", "b.txt", "\u0995.txt"]
    assert names(tmp_path / "sub") == ["c.txt"]
    assert "2 files" in result.err and "skipped" in result.err


def test_own_results_are_no_sources_and_are_told(zorvak, example, tmp_path):
    write(tmp_path / "a.txt", "k")
    write(tmp_path / "x- Unicode.txt", "k")
    for _ in range(3):
        result = zorvak.run("convert", "--plugin", example, tmp_path)
        assert result.code == 0
        assert [source.name for source, _ in zorvak.results(result)] == ["a.txt"]
        assert "x- Unicode.txt" in result.err and "skipped" in result.err
    assert names(tmp_path) == ["a- Unicode - 1.txt", "a- Unicode - 2.txt", "a- Unicode.txt", "a.txt",
                               "x- Unicode.txt"]
    # Named by itself it is a source like any other.
    result = zorvak.run("convert", "--plugin", example, tmp_path / "x- Unicode.txt")
    assert result.code == 0 and (tmp_path / "x- Unicode- Unicode.txt").exists()


def test_own_results_by_the_suffix_in_use(zorvak, example, tmp_path):
    for name in ["a.txt", "a_u.txt", "a_u - 7.txt", "a- Unicode.txt"]:
        write(tmp_path / name, "k")
    result = zorvak.run("convert", "--plugin", example, tmp_path, "--suffix", "_u")
    assert [source.name for source, _ in zorvak.results(result)] == ["a- Unicode.txt", "a.txt"]


def test_files_and_folders_may_be_mixed(zorvak, example, tmp_path):
    for name in ["z.txt", "dir/b.txt", "dir/a.txt"]:
        write(tmp_path / name, "k")
    result = zorvak.run("convert", "--plugin", example, tmp_path / "z.txt", tmp_path / "dir")
    assert [source.name for source, _ in zorvak.results(result)] == ["z.txt", "a.txt", "b.txt"]


def test_a_folder_without_anything_to_convert(zorvak, example, tmp_path):
    write(tmp_path / "a- Unicode.txt", "k")
    result = zorvak.run("convert", "--plugin", example, tmp_path)
    assert result.code == 2
    assert "nothing to convert" in result.err and "a- Unicode.txt" in result.err


# --- Files that fail; the others go through


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


def test_a_folder_that_takes_no_file(zorvak, example, tmp_path):
    # Nobody makes a file there, root included.
    target = pathlib.Path("/proc/sys")
    with pytest.raises(OSError):
        (target / "probe.txt").touch()
    source = write(tmp_path / "a.txt", "k")
    result = zorvak.run("convert", "--plugin", example, source, "--folder", target)
    assert result.code == 1 and result.out == b""
    assert zorvak.name(source) in result.err


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


# --- Wrong usage


@pytest.mark.parametrize("arguments, told", [
    ([], "nothing to convert"),
    (["-"], "zorvak text"),
    (["a.txt", "-"], "zorvak text"),
    (["a.txt", "--encoding", "utf-8"], "utf-8"),
    (["a.txt", "--encoding", ""], "--encoding"),
    (["a.txt", "--folder", "missing"], "missing"),
    (["a.txt", "--folder", "a.txt"], "a.txt"),
    (["a.txt", "--folder", ""], "--folder"),
    (["a.txt", "--suffix", "x/y"], "--suffix"),
    (["a.txt", "--from", "Nobody"], "Nobody"),
    (["a.txt", "--from", ""], "unknown encoding"),
    (["a.txt", "--from", "Example", "--plugin", "x.dll"], "exclude"),
])
def test_wrong_usage_touches_nothing(zorvak, example, tmp_path, arguments, told):
    program = zorvak.installed_in(tmp_path / "program", [example])
    write(tmp_path / "work" / "a.txt", "k")
    if "--from" not in arguments:
        arguments = ["--from", "Example"] + arguments
    result = program.run("convert", *arguments, cwd=tmp_path / "work")
    assert result.code == 2, result
    assert result.out == b"" and told in result.err
    assert names(tmp_path / "work") == ["a.txt"]


def test_an_unknown_encoding_lists_the_known_ones(zorvak, example, tmp_path):
    program = zorvak.installed_in(tmp_path / "program", [example])
    shutil.copy(example, tmp_path / "program" / "conversion Plugins" / "Other.DLL")
    result = program.run("convert", "--from", "Nobody", write(tmp_path / "a.txt", "k"))
    assert result.code == 2
    assert "Nobody" in result.err and "Example, Other" in result.err


# --- The plug-in


def test_from_is_matched_without_regard_to_case(zorvak, example, tmp_path):
    program = zorvak.installed_in(tmp_path / "program", [example])
    source = write(tmp_path / "a.txt", "k")
    for name in ["Example", "EXAMPLE", "example"]:
        assert program.run("convert", "--from", name, source).code == 0


def test_bijoy_is_the_default(zorvak, example, tmp_path):
    program = zorvak.installed_in(tmp_path / "program")
    shutil.copy(example, tmp_path / "program" / "conversion Plugins" / "BIJOY.DLL")
    assert program.run("convert", write(tmp_path / "a.txt", "k")).code == 0
    assert (tmp_path / "a- Unicode.txt").read_bytes() == utf16("\u0995")


@pytest.mark.parametrize("plugins", [None, []])
def test_a_missing_default_plug_in(zorvak, tmp_path, plugins):
    program = zorvak.installed_in(tmp_path / "program", plugins)
    result = program.run("convert", write(tmp_path / "a.txt", "k"))
    assert result.code == 3
    assert result.out == b"" and "missing" in result.err and "Bijoy" in result.err
    assert names(tmp_path) == ["a.txt", "program"]


def test_a_missing_plug_in_that_plugin_ini_tells_of(zorvak, example, tmp_path):
    program = zorvak.installed_in(tmp_path / "program", [example], ini=b"[Lost]\r\nTable=Lost\r\n")
    result = program.run("convert", "--from", "lost", write(tmp_path / "a.txt", "k"))
    assert result.code == 3 and "missing" in result.err


def test_a_missing_plug_in_file(zorvak, tmp_path):
    result = zorvak.run("convert", "--plugin", tmp_path / "none.dll", write(tmp_path / "a.txt", "k"))
    assert result.code == 3
    assert result.out == b"" and "missing" in result.err
    assert names(tmp_path) == ["a.txt"]


@pytest.mark.parametrize("damage", ["empty", "cut", "noise", "salt"])
def test_a_damaged_plug_in(zorvak, example, tmp_path, damage):
    good = example.read_bytes()
    bad = {"empty": b"", "cut": good[:-1], "noise": bytes(range(256)), "salt": good[:-1] + b"\xff"}[damage]
    plugin = write(tmp_path / "bad.dll", bad)
    result = zorvak.run("convert", "--plugin", plugin, write(tmp_path / "a.txt", "k"))
    assert result.code == 3, result
    assert result.out == b"" and zorvak.name(plugin) in result.err
    assert names(tmp_path) == ["a.txt", "bad.dll"]


def test_usage_comes_before_the_plug_in(zorvak, tmp_path):
    result = zorvak.run("convert", "--plugin", tmp_path / "none.dll", "-")
    assert result.code == 2


def test_the_program_finds_its_folders_through_a_link(native, example, tmp_path):
    program = native.installed_in(tmp_path / "program", [example])
    link = tmp_path / "bin" / "zorvak"
    link.parent.mkdir()
    link.symlink_to(program.path)
    source = write(tmp_path / "a.txt", "k")
    for start in [[str(link)], ["zorvak"]]:
        completed = subprocess.run(start + ["convert", "--from", "Example", str(source)], capture_output=True,
                                   env={**os.environ, "PATH": f"{link.parent}:{os.environ['PATH']}"}, timeout=60)
        assert completed.returncode == 0, completed.stderr


# --- Standard streams


def test_a_reader_that_has_gone_does_not_stop_the_work(zorvak, example, tmp_path):
    sources = [write(tmp_path / f"{i}.txt", "k") for i in range(3)]
    read, write_end = os.pipe()
    os.close(read)
    try:
        result = zorvak.run("convert", "--plugin", example, *sources, stdout=write_end)
    finally:
        os.close(write_end)
    assert (result.code, result.err) == (0, "")
    assert len(names(tmp_path)) == 6


def test_a_report_that_cannot_be_written_is_told(zorvak, example, tmp_path):
    with open("/dev/full", "wb") as full:
        result = zorvak.run("convert", "--plugin", example, write(tmp_path / "a.txt", "k"), stdout=full)
    assert result.code == 1 and "standard output" in result.err
    assert (tmp_path / "a- Unicode.txt").exists()


def test_a_progress_bar_on_a_terminal_and_none_elsewhere(native, example, tmp_path):
    source = write(tmp_path / "a.txt", "k\r\n" * 200000)
    command = native.command("convert", "--plugin", example, source)
    code, out, shown = run_on_terminal(command, "stderr")
    assert code == 0
    assert re.search(r"\[[#.]{30}\] +\d+% ", shown)
    assert "\n" not in shown and shown.endswith("\r"), "the bar is taken away at the end"
    assert out == f"{source} -> {tmp_path / 'a- Unicode.txt'}\n".encode()
    assert native.run("convert", "--plugin", example, source).err == ""


def test_messages_on_a_terminal_carry_no_commands_to_it(native, example, tmp_path):
    _, _, shown = run_on_terminal(native.command("convert", "--plugin", example, tmp_path / "\x1b[31m\x9b.txt"),
                                  "stderr")
    assert "no such file" in shown and "\x1b" not in shown and "\x9b" not in shown


# --- Both programs


def test_both_programs_make_the_same_files(both, example, tmp_path):
    lines = [EXAMPLE_LEGACY, "", "k\tkh\x80\x81", FAILING_LINE, "e" * 300 + "k", "a*~^"] * 50
    made = []
    for program in both:
        folder = tmp_path / program.kind
        write(folder / "a.txt", ("\r\n".join(lines)).encode("cp1252", "replace"))
        write(folder / "b.txt", b"\xff\xfe" + "\r\n".join(lines).encode("utf-16-le") + b"\xd8")
        result = program.run("convert", "--plugin", example, "--keep-going", folder)
        assert result.code == 0, result
        made.append([(folder / name).read_bytes() for name in ["a- Unicode.txt", "b- Unicode.txt"]])
    assert made[0] == made[1]
    assert all(len(content) > 1000 for content in made[0])
