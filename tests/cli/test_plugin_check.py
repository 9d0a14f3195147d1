"""zorvak plugin check, and what build and the plain form refuse"""

import pytest

from conftest import plain_table, write

HEAD = "[markers]\nreph = U+E001\nya-phala = U+E002\n[rules]\n"


def check(zorvak, file):
    """Exit code, and line number, kind and text of each message."""
    result = zorvak.run("plugin", "check", file.name, cwd=file.parent)
    assert result.err == "", result
    *messages, summary = result.out.decode().splitlines()
    assert summary.startswith(file.name + ": ")
    found = []
    for message in messages:
        assert message.startswith(file.name + ":"), message
        where, _, text = message[len(file.name) + 1:].partition(" ")
        kind, _, text = text.partition(": ")
        found.append((where.rstrip(":"), kind, text))
    return result.code, found


WARNINGS = {
    "empty Find": ("= x", "empty"),
    "duplicate": ("k = U+0995\nk = U+0996", "can never match"),
    "longer behind shorter": ("k = U+0995\nkh = U+0996", "can never match"),
    "marker in a Find": ("<reph> x = U+0995", "reph marker"),
    "legacy character left": ("k = U+0995 k", "legacy character"),
}


@pytest.mark.parametrize("rules, part", WARNINGS.values(), ids=WARNINGS.keys())
def test_warnings_name_the_line_and_exit_0(zorvak, tmp_path, rules, part):
    code, messages = check(zorvak, write(tmp_path / "rules.txt", HEAD + rules))
    assert code == 0
    assert [(line, kind) for line, kind, _ in messages] == [(str(5 + rules.count("\n")), "warning")]
    assert part in messages[0][2]


@pytest.mark.parametrize("rules, part", WARNINGS.values(), ids=WARNINGS.keys())
def test_the_plug_in_gets_the_warnings_of_its_source(zorvak, tmp_path, rules, part):
    source = write(tmp_path / "rules.txt", HEAD + rules)
    assert zorvak.run("plugin", "build", source, tmp_path / "made.DLL").code == 0
    code, messages = check(zorvak, tmp_path / "made.DLL")
    assert code == 0
    # Lines of the table: two markers, then the rules.
    assert [(line, kind) for line, kind, _ in messages] == [(str(3 + rules.count("\n")), "warning")]
    assert part in messages[0][2]


@pytest.mark.parametrize("reph, part", [("U+E001 U+E003", "longer"), ("%", "ordinary text")])
def test_doubtful_markers(zorvak, tmp_path, reph, part):
    source = write(tmp_path / "rules.txt", f"[markers]\nreph = {reph}\nya-phala = U+E002\n[rules]\nk = U+0995\n")
    code, messages = check(zorvak, source)
    assert code == 0
    assert [(line, kind) for line, kind, _ in messages] == [("2", "warning")] and part in messages[0][2]
    assert zorvak.run("plugin", "build", source, tmp_path / "made.dll").code == 0


MISTAKES = {
    "malformed number": (HEAD + "k = U+99\n", 5),
    "no equals sign": (HEAD + "k x\n", 5),
    "unknown section": (HEAD + "k = x\n[rule]\n", 6),
    "before the first section": ("k = x\n" + HEAD + "k = x\n", 1),
    "empty marker": ("[markers]\nreph =\nya-phala = U+E002\n[rules]\nk = x\n", 2),
    "endless marker": ("[markers]\nreph = U+E001\nya-phala = U+09CD\n[rules]\nk = x\n", 3),
    "TAB in a field": (HEAD + "k = U+0009\n", 5),
    "line end in a field": (HEAD + "k = U+000D U+000A\n", 5),
}


@pytest.mark.parametrize("text, line", MISTAKES.values(), ids=MISTAKES.keys())
def test_mistakes_exit_1_and_build_nothing(zorvak, tmp_path, text, line):
    source = write(tmp_path / "rules.txt", text)
    code, messages = check(zorvak, source)
    assert code == 1
    assert [where for where, kind, _ in messages if kind == "error"] == [str(line)]
    built = zorvak.run("plugin", "build", source.name, "made.dll", cwd=tmp_path)
    assert built.code == 1 and built.out == b""
    assert f"rules.txt:{line}: error: " in built.err
    assert not (tmp_path / "made.dll").exists()


def test_a_plug_in_never_replaces_its_own_rules(zorvak, tmp_path):
    source = write(tmp_path / "rules.txt", HEAD + "k = x\n")
    result = zorvak.run("plugin", "build", source, tmp_path / "." / "rules.txt")
    assert result.code == 2 and "own rules" in result.err
    assert source.read_text().startswith("[markers]")


def test_no_rule(zorvak, tmp_path):
    source = write(tmp_path / "rules.txt", HEAD)
    assert check(zorvak, source)[0] == 1
    assert zorvak.run("plugin", "build", source, tmp_path / "made.dll").code == 1


@pytest.mark.parametrize("rules, code", [(32767, 0), (32768, 1)])
def test_more_rules_than_a_conversion_takes(zorvak, tmp_path, rules, code):
    table = plain_table([(chr(0x4E00 + i % 500) + chr(0x6000 + i // 500), "\u0995") for i in range(rules)])
    plain, made = write(tmp_path / "plain.txt", table), tmp_path / "made.dll"
    assert zorvak.run("plugin", "build", "--plain", plain, made).code == 0
    found, messages = check(zorvak, made)
    assert found == code
    assert [line for line, _, _ in messages] == ([] if code == 0 else ["32770"])


@pytest.mark.parametrize("field", ["U+000D", "U+000A", "U+D800"])
def test_what_the_plain_form_cannot_hold(zorvak, tmp_path, field):
    source, made = write(tmp_path / "rules.txt", HEAD + f"k = {field}\n"), tmp_path / "made.dll"
    assert zorvak.run("plugin", "build", source, made).code == 0
    shown = zorvak.run("plugin", "show", "--plain", made)
    assert shown.code == 3 and shown.out == b"" and "line 3" in shown.err
    assert field.encode() in zorvak.run("plugin", "show", made).out


@pytest.mark.parametrize("table", [b"1\n2\na\tb\r\n", b"1\n2\na\t\xff", b"1\n2\n\xed\xa0\x80\ta"])
def test_what_is_no_plain_form(zorvak, tmp_path, table):
    plain = write(tmp_path / "plain.txt", table)
    built = zorvak.run("plugin", "build", "--plain", plain, tmp_path / "made.dll")
    assert built.code == 3 and "line 3" in built.err
    assert not (tmp_path / "made.dll").exists()


def test_a_third_field_goes_there_and_back(zorvak, tmp_path):
    table = b"1\n2\na\tb\tmore\t"
    plain, made = write(tmp_path / "plain.txt", table), tmp_path / "made.dll"
    assert zorvak.run("plugin", "build", "--plain", plain, made).code == 0
    assert zorvak.run("plugin", "show", "--plain", made).out == table
