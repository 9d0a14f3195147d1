"""zorvak convert: files that go through, what is told, both programs"""

import os
import re

import pytest

from conftest import EXAMPLE_LEGACY, EXAMPLE_UNICODE, FAILING_LINE, names, run_on_terminal, utf16, write


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
