"""The encodings that ship, through both programs."""

import pytest

from conftest import ROOT

NAMES = sorted(path.stem for path in (ROOT / "data" / "encodings").glob("*.txt"))


@pytest.fixture(params=NAMES)
def name(request):
    return request.param


@pytest.fixture
def sample(name):
    return ROOT / "data" / "samples" / (name + ".txt")


def test_the_sample_is_converted_alike_by_both_commands(zorvak, name, sample, tmp_path):
    result = zorvak.run("convert", "--from", name.lower(), "--folder", tmp_path, sample)
    assert (result.code, result.err) == (0, "")
    content = (tmp_path / (sample.stem + "- Unicode.txt")).read_bytes()
    piped = zorvak.run("text", "--from", name, "--output", "utf-16", input=sample.read_bytes())
    assert (piped.code, piped.err) == (0, "")
    assert content == b"\xff\xfe" + piped.out
    text = content.decode("utf-16")
    assert text.count("\r\n") >= 40
    # Bangla, and nothing left of the legacy letters but what is ASCII.
    odd = {unit for unit in text if not ("\u0980" <= unit <= "\u09ff" or unit < "\x7f"
                                         or unit in "\u0964\u0965\u200c\u200d\u2018\u2019\u201c\u201d\u2013\u2014")}
    assert not odd


def test_both_programs_convert_and_show_the_same(both, name, sample):
    one, other = both
    legacy = sample.read_bytes()
    assert one.run("text", "--from", name, input=legacy).out == other.run("text", "--from", name, input=legacy).out
    plugin = [program.folder / "conversion Plugins" / (name + ".dll") for program in both]
    assert plugin[0].read_bytes() == plugin[1].read_bytes()
    for arguments in [["show"], ["show", "--plain"]]:
        shown = [program.run("plugin", *arguments, file).out for program, file in zip(both, plugin)]
        assert shown[0] == shown[1] and len(shown[0]) > 1000


def test_the_shipped_plug_ins_have_no_error(zorvak, name):
    result = zorvak.run("plugin", "check", zorvak.folder / "conversion Plugins" / (name + ".dll"))
    assert result.code == 0, result
