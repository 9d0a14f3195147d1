"""zorvak convert: options, wrong usage, the plug-in"""

import os
import pathlib
import shutil
import subprocess

import pytest

from conftest import build_plugin, names, plain_table, utf16, write


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


def test_a_folder_that_takes_no_file(zorvak, example, tmp_path):
    # Nobody makes a file there, root included.
    target = pathlib.Path("/proc/sys")
    with pytest.raises(OSError):
        (target / "probe.txt").touch()
    result = zorvak.run("convert", "--plugin", tmp_path / "none.dll", write(tmp_path / "a.txt", "k"), "--folder", target)
    assert result.code == 2 and result.out == b""
    assert "takes no file" in result.err and zorvak.name(target) in result.err


def test_a_folder_without_the_right_to_write_there(native, example, open_folder, unprivileged):
    program = native.installed_in(open_folder / "program")
    plugin = shutil.copy(example, open_folder / "plugin.dll")
    os.chmod(plugin, 0o644)
    source = write(open_folder / "a.txt", "k")
    (open_folder / "closed").mkdir(mode=0o555)
    completed = subprocess.run(unprivileged + program.command("convert", "--plugin", plugin, source, "--folder",
                                                              open_folder / "closed"), capture_output=True, timeout=60)
    assert (completed.returncode, completed.stdout) == (2, b"")
    assert b"ermission denied" in completed.stderr
    assert names(open_folder / "closed") == []


def test_an_unknown_encoding_lists_the_known_ones(zorvak, example, tmp_path):
    program = zorvak.installed_in(tmp_path / "program", [example])
    shutil.copy(example, tmp_path / "program" / "conversion Plugins" / "Other.DLL")
    result = program.run("convert", "--from", "Nobody", write(tmp_path / "a.txt", "k"))
    assert result.code == 2
    assert "Nobody" in result.err and "Example, Other" in result.err


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


def test_a_plug_in_with_more_rules_than_a_conversion_takes(zorvak, tmp_path):
    table = plain_table([(chr(0x4E00 + i % 500) + chr(0x6000 + i // 500), "\u0995") for i in range(32768)])
    plugin = build_plugin(zorvak, tmp_path, "Large", table)
    source = write(tmp_path / "a.txt", "k")
    for arguments in [["convert", source], ["convert", "--keep-going", source], ["text"]]:
        result = zorvak.run(*arguments, "--plugin", plugin, input=b"k\n")
        assert result.code == 3, result
        assert result.out == b"" and zorvak.name(plugin) in result.err and "Overflow" in result.err
    assert names(tmp_path) == ["Large.dll", "a.txt"]


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
