"""Text that zorvak wrote, read by other people's programs."""

import os
import pathlib
import subprocess

import pytest

ROOT = pathlib.Path(__file__).resolve().parents[2]
ZORVAK = pathlib.Path(os.environ.get("ZORVAK_NATIVE", ROOT / "build/native/zorvak"))
SAMPLES = sorted((ROOT / "data/samples").glob("*.txt"))


@pytest.fixture(scope="module")
def converted(tmp_path_factory):
    folder = tmp_path_factory.mktemp("converted")
    for sample in SAMPLES:
        subprocess.run(
            [ZORVAK, "convert", "--from", sample.stem, "--folder", folder, sample], check=True, capture_output=True
        )
    return folder


def expected(sample):
    return (ROOT / f"tests/golden/samples/{sample.stem}.expected.txt").read_text(encoding="utf-8").splitlines()


def test_there_is_a_sample_of_each_encoding():
    assert len(SAMPLES) >= 3
    assert [p.stem for p in SAMPLES] == sorted(p.stem for p in (ROOT / "data/encodings").glob("*.txt"))


@pytest.mark.parametrize("sample", SAMPLES, ids=lambda p: p.stem)
def test_iconv_reads_what_the_sample_says(converted, sample):
    file = converted / f"{sample.stem}- Unicode.txt"
    made = subprocess.run(["iconv", "-f", "UTF-16", "-t", "UTF-8", file], check=True, capture_output=True)
    assert made.stdout.decode("utf-8").split("\r\n") == expected(sample) + [""]


@pytest.mark.parametrize("sample", SAMPLES, ids=lambda p: p.stem)
def test_python_reads_a_mark_and_whole_lines(converted, sample):
    data = (converted / f"{sample.stem}- Unicode.txt").read_bytes()
    assert data[:2] == b"\xff\xfe"
    text = data.decode("utf-16")
    assert "\ufffd" not in text
    assert text.count("\r\n") == text.count("\n") == len(expected(sample))


@pytest.mark.parametrize("sample", SAMPLES, ids=lambda p: p.stem)
def test_the_filter_says_the_same_as_the_batch(converted, sample):
    made = subprocess.run(
        [ZORVAK, "text", "--from", sample.stem], stdin=sample.open("rb"), check=True, capture_output=True
    )
    batch = (converted / f"{sample.stem}- Unicode.txt").read_bytes().decode("utf-16")
    assert made.stdout.decode("utf-8") == batch


@pytest.mark.parametrize("sample", SAMPLES, ids=lambda p: p.stem)
def test_every_character_is_bangla_or_plain(converted, sample):
    """No letter of the legacy font is left over."""
    text = (converted / f"{sample.stem}- Unicode.txt").read_bytes().decode("utf-16")
    plain = set(" \r\n\t!%()+,-./:;=?[]'\"\u0964\u0965\u2018\u2019\u201c\u201d\u2013\u2014\u2026\u200c\u200d")
    odd = {c for c in text if not ("\u0980" <= c <= "\u09ff") and c not in plain}
    assert not odd, sorted(map(ascii, odd))
