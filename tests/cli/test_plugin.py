"""zorvak plugin, from the command line; the rule source itself has unit tests"""

import pytest

from conftest import EXAMPLE_RULES, plain_table, write


@pytest.fixture
def source(zorvak, example, tmp_path):
    """The example's rules as a source text, shown by the program."""
    shown = zorvak.run("plugin", "show", example)
    assert (shown.code, shown.err) == (0, "")
    return write(tmp_path / "rules.txt", shown.out)


def test_the_plain_form_goes_there_and_back(zorvak, tmp_path):
    rules = EXAMPLE_RULES + [("\ufeff", "a"), ("", ""), ("# x", "\t"), ("\u0081", "  ")]
    table = plain_table(rules)
    plain, made = write(tmp_path / "plain.txt", table), tmp_path / "made.dll"
    assert zorvak.run("plugin", "build", "--plain", plain, made).code == 0
    assert zorvak.run("plugin", "show", made, "--plain").out == table


def test_the_source_form_goes_there_and_back(zorvak, example, source, tmp_path):
    again = tmp_path / "again.dll"
    result = zorvak.run("plugin", "build", source, again)
    assert (result.code, result.out) == (0, b""), result
    assert again.read_bytes() == example.read_bytes()
    assert zorvak.run("plugin", "show", again).out == source.read_bytes()


def test_both_programs_build_show_and_check_the_same(both, example, tmp_path):
    plain = write(tmp_path / "plain.txt", plain_table(EXAMPLE_RULES))
    seen = []
    for program in both:
        made = tmp_path / (program.kind + ".dll")
        assert program.run("plugin", "build", "--plain", plain, made).code == 0
        check = program.run("plugin", "check", "check.dll", cwd=write(tmp_path / "check.dll", made.read_bytes()).parent)
        seen.append((made.read_bytes(), program.run("plugin", "show", made).out,
                     program.run("plugin", "show", "--plain", made).out, check.code, check.out))
    assert seen[0] == seen[1]


def test_each_opens_what_the_other_made(both, example, tmp_path):
    plain = write(tmp_path / "plain.txt", plain_table(EXAMPLE_RULES))
    for maker, reader in [both, both[::-1]]:
        made = tmp_path / (maker.kind + ".dll")
        assert maker.run("plugin", "build", "--plain", plain, made).code == 0
        assert reader.run("plugin", "show", "--plain", made).out == plain.read_bytes()


def test_check_of_a_good_plug_in_and_its_source(zorvak, example, source):
    for file in [example, source]:
        assert zorvak.run("plugin", "check", file).code == 0


@pytest.mark.parametrize("table", [b"\xee\x80\x81\n\xee\x80\x82", b"\xee\x80\x81\n\xee\x80\x82\nno tab",
                                   b"\n\xee\x80\x82\na\tb", b"\xee\x80\x81\n\xee\x80\x82\na\tb\n"])
def test_what_could_not_be_loaded_is_not_built(zorvak, tmp_path, table):
    result = zorvak.run("plugin", "build", "--plain", write(tmp_path / "plain.txt", table), tmp_path / "made.dll")
    assert result.code == 1, result
    assert result.err != "" and not (tmp_path / "made.dll").exists()


@pytest.mark.parametrize("arguments", [["show", "none.dll"], ["show", "."], ["check", "none.dll"],
                                       ["check", "none.txt"], ["build", "none.txt", "made.dll"]])
def test_a_file_that_cannot_be_read(zorvak, tmp_path, arguments):
    result = zorvak.run("plugin", *arguments, cwd=tmp_path)
    assert result.code == 3, result
    assert result.out == b"" and arguments[1] in result.err
    assert list(tmp_path.iterdir()) == []


def test_a_folder_that_is_not_there_to_write_into(zorvak, source, tmp_path):
    result = zorvak.run("plugin", "build", source, tmp_path / "none" / "made.dll")
    assert result.code == 3 and result.out == b"" and "made.dll" in result.err


def test_a_plug_in_that_cannot_be_read_leaves_what_stands(zorvak, example, tmp_path):
    made = write(tmp_path / "made.dll", b"old")
    bad = write(tmp_path / "bad.txt", b"\xff\xff")
    assert zorvak.run("plugin", "build", bad, made).code != 0
    assert made.read_bytes() == b"old"


@pytest.mark.parametrize("content", [b"", b"\0", b"x" * 300, bytes(range(256)) * 4])
def test_a_damaged_plug_in(zorvak, tmp_path, content):
    bad = write(tmp_path / "bad.DLL", content)
    shown = zorvak.run("plugin", "show", bad)
    assert shown.code == 3 and shown.out == b"" and "bad.DLL" in shown.err
    assert zorvak.run("plugin", "check", bad).code == 1


def test_standard_streams(zorvak, example, source, tmp_path):
    built = zorvak.run("plugin", "build", "-", "-", input=source.read_bytes())
    assert (built.code, built.out) == (0, example.read_bytes())
    assert zorvak.run("plugin", "show", "-", input=built.out).out == source.read_bytes()


def test_a_table_that_cannot_be_written_out(zorvak, example):
    with open("/dev/full", "wb") as full:
        result = zorvak.run("plugin", "show", example, stdout=full)
    assert result.code == 3 and "standard output" in result.err


def test_bangla_file_names(zorvak, example, tmp_path):
    source = write(tmp_path / "\u09ac\u09be\u0982\u09b2\u09be.txt", zorvak.run("plugin", "show", example).out)
    made = tmp_path / "\u09aa\u09cd\u09b0.dll"
    assert zorvak.run("plugin", "build", source, made).code == 0
    assert made.read_bytes() == example.read_bytes()
    missing = zorvak.run("plugin", "show", tmp_path / "\u09a8\u09be.dll")
    assert "\u09a8\u09be.dll" in missing.err


def test_the_same_plug_in_at_any_time_and_place(native, example, tmp_path):
    plain = write(tmp_path / "plain.txt", plain_table(EXAMPLE_RULES))
    made = tmp_path / "made.dll"
    native.run("plugin", "build", "--plain", plain, made, env={"TZ": "Asia/Dhaka", "HOME": "/", "LC_ALL": "C"})
    assert made.read_bytes() == example.read_bytes()


def test_without_words_and_with_too_many(zorvak):
    for arguments in [[], ["build"], ["build", "a"], ["build", "a", "b", "c"], ["show"], ["show", "a", "b"],
                      ["check"], ["check", "a", "b"], ["check", "a", "--plain"]]:
        result = zorvak.run("plugin", *arguments)
        assert result.code == 2 and result.out == b"", arguments
