"""zorvak text: standard input to standard output."""

import os
import pathlib
import re
import resource
import subprocess
import threading

import pytest

from conftest import EXAMPLE_LEGACY, EXAMPLE_UNICODE, FAILING_LINE

KINDS = {"cp1252": "cp1252", "utf-8": "utf-8", "utf-16": "utf-16-le"}


def encoded(text, kind):
    return text.encode(KINDS[kind], "surrogatepass")


@pytest.mark.parametrize("kind_in", ["cp1252", "utf-8", "utf-16"])
@pytest.mark.parametrize("kind_out", ["utf-8", "utf-16"])
def test_every_encoding(zorvak, example, kind_in, kind_out):
    legacy = EXAMPLE_LEGACY + "\r\n\r\nk \xe9\n" + EXAMPLE_LEGACY
    result = zorvak.run("text", "--plugin", example, "--input", kind_in, "--output", kind_out,
                        input=encoded(legacy, kind_in))
    assert result.code == 0, result
    assert result.err == ""
    assert result.out == encoded(EXAMPLE_UNICODE + "\r\n\r\n\u0995 \xe9\n" + EXAMPLE_UNICODE, kind_out)


def test_defaults_are_cp1252_in_and_utf8_out(zorvak, example):
    # 0x86 is a dagger in the code page, and a lone trail in UTF-8.
    result = zorvak.run("text", "--plugin", example, input=b"k\x86\n")
    assert result.out == "\u0995\u2020\n".encode()
    assert result.code == 0


def test_the_encoding_is_bijoy_unless_told(zorvak, example):
    result = zorvak.run("text", input="Avgvi evsjv\n".encode("cp1252"))
    assert (result.code, result.out.decode()) == (0, "\u0986\u09ae\u09be\u09b0 \u09ac\u09be\u0982\u09b2\u09be\n")
    assert zorvak.run("text", "--from", "bIJOY", input=b"Avgvi\n").out.decode() == "\u0986\u09ae\u09be\u09b0\n"


def test_nothing_gives_nothing(zorvak, example):
    for kind in KINDS:
        result = zorvak.run("text", "--plugin", example, "--input", kind)
        assert (result.code, result.out, result.err) == (0, b"", "")


def test_a_hyphen_is_standard_input(zorvak, example):
    result = zorvak.run("text", "--plugin", example, "-", input=b"k\n")
    assert (result.code, result.out.decode()) == (0, "\u0995\n")
    assert zorvak.run("text", "--plugin", example, "-", "-", input=b"k\n").code == 2


def test_words_of_encodings_in_any_case(zorvak, example):
    result = zorvak.run("text", "--plugin", example, "--input", "UTF-8", "--output", "Utf-16", input=b"k")
    assert (result.code, result.out) == (0, b"\x95\x09")


def test_a_lone_cr_is_text(zorvak, example):
    result = zorvak.run("text", "--plugin", example, input=b"k\rk\r\r\nk\r")
    assert result.out.decode() == "\u0995\r\u0995\r\r\n\u0995\r"


@pytest.mark.parametrize("kind, mark", [("utf-8", b"\xef\xbb\xbf"), ("utf-16", b"\xff\xfe")])
def test_a_mark_is_taken_and_none_is_written(zorvak, example, kind, mark):
    for text in ["", "k\nk"]:
        result = zorvak.run("text", "--plugin", example, "--input", kind, "--output", kind,
                            input=mark + encoded(text, kind))
        assert (result.code, result.out) == (0, encoded(text.replace("k", "\u0995"), kind))


def test_a_big_endian_mark_is_a_failure(zorvak, example):
    result = zorvak.run("text", "--plugin", example, "--input", "utf-16", input="\ufeffk".encode("utf-16-be"))
    assert (result.code, result.out) == (3, b"")
    assert "big-endian" in result.err


def test_lone_surrogates_pass_unharmed(zorvak, example):
    text = encoded("\udc00k\n\ud800\U0001f600\ud83d", "utf-16")
    result = zorvak.run("text", "--plugin", example, "--input", "utf-16", "--output", "utf-16", input=text)
    assert (result.code, result.err) == (0, "")
    assert result.out == encoded("\udc00\u0995\n\ud800\U0001f600\ud83d", "utf-16")


def test_invalid_input_is_replaced_and_counted(zorvak, example):
    result = zorvak.run("text", "--plugin", example, "--input", "utf-8", input=b"k\xe2\x80\nk\xff\n")
    assert result.code == 0
    assert result.out.decode() == "\u0995\ufffd\n\u0995\ufffd\n"
    assert "2 " in result.err
    result = zorvak.run("text", "--plugin", example, "--input", "utf-16", "--output", "utf-16", input=b"k\0k")
    assert (result.code, result.out) == (0, encoded("\u0995\ufffd", "utf-16"))
    assert "1 " in result.err
    result = zorvak.run("text", "--plugin", example, "--input", "utf-16", input=encoded("\ud800", "utf-16"))
    assert (result.code, result.out.decode()) == (0, "\ufffd")
    assert "1 " in result.err


def test_a_failing_line_is_named_and_those_before_it_are_written(zorvak, example):
    legacy = "k\r\nkhk\n" + FAILING_LINE + "\nk\n"
    result = zorvak.run("text", "--plugin", example, input=legacy.encode())
    assert result.code == 3
    assert result.out.decode() == "\u0995\r\n\u0996\u0995\n"
    assert "line 3" in result.err and FAILING_LINE in result.err
    assert "Invalid procedure call or argument" in result.err


def test_a_failing_line_is_counted_through_a_long_text(zorvak, example):
    result = zorvak.run("text", "--plugin", example, input=b"kakakaka\n" * 50000 + FAILING_LINE.encode())
    assert result.code == 3
    assert "line 50001" in result.err
    assert result.out.decode() == "\u0995\u09be\u0995\u09be\u0995\u09be\u0995\u09be\n" * 50000


def test_keep_going_leaves_a_failing_line_as_it_was(zorvak, example):
    legacy = "k\r\n" + FAILING_LINE + "\u2020\r\nk\n" + FAILING_LINE
    result = zorvak.run("text", "--plugin", example, "--keep-going", input=legacy.encode("cp1252"))
    assert result.code == 0
    assert result.out.decode() == "\u0995\r\n" + FAILING_LINE + "\u2020\r\n\u0995\n" + FAILING_LINE
    assert "2 " in result.err


@pytest.mark.parametrize("arguments, word", [
    (["--input", "utf-32"], "utf-32"),
    (["--output", "cp1252"], "cp1252"),
    (["--from", "Nowhere"], "Bijoy"),
    (["--from", "Bijoy", "--plugin", "x.dll"], "--plugin"),
    (["letter.txt"], "letter.txt"),
    (["--suffix", "x"], "suffix"),
    (["--input"], "input"),
])
def test_wrong_usage(zorvak, arguments, word):
    result = zorvak.run("text", *arguments, input=b"k\n")
    assert (result.code, result.out) == (2, b"")
    assert word in result.err


def test_a_missing_or_damaged_plugin(zorvak, tmp_path):
    result = zorvak.run("text", "--plugin", tmp_path / "none.dll", input=b"k\n")
    assert (result.code, result.out) == (3, b"")
    damaged = tmp_path / "damaged.dll"
    damaged.write_bytes(b"no plug-in at all")
    result = zorvak.run("text", "--plugin", damaged, input=b"k\n")
    assert (result.code, result.out) == (3, b"")
    assert "damaged.dll" in result.err


def test_help(zorvak):
    result = zorvak.run("text", "--help")
    assert (result.code, result.err) == (0, "")
    assert b"--keep-going" in result.out


def test_a_line_of_50_mb(native, example):
    result = native.run("text", "--plugin", example, input=b"ka kha " * 7500000 + b"\nk")
    assert result.code == 0, result.err
    one = "\u0995\u09be \u0996\u09be ".encode()
    assert len(result.out) == len(one) * 7500000 + 4
    assert result.out[-4:] == "\n\u0995".encode()
    assert result.out[:len(one) * 1000] == one * 1000


def test_what_came_in_goes_out_before_more_comes(native, example):
    with subprocess.Popen(native.command("text", "--plugin", example), stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE) as process:
        process.stdin.write(b"k\nk")
        process.stdin.flush()
        assert process.stdout.read(4) == "\u0995\n".encode()
        process.stdin.close()
        assert process.stdout.read() == "\u0995".encode()
        assert process.wait() == 0


def test_memory_is_bounded(native, example):
    line = (b"ka kha ek^a " * 5400)[:64 * 1024 - 1] + b"\n"
    with subprocess.Popen(native.command("text", "--plugin", example, "--output", "utf-16"), stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE) as process:
        reader = threading.Thread(target=lambda: [None for _ in iter(lambda: process.stdout.read(1 << 20), b"")])
        reader.start()
        for _ in range(1500):
            process.stdin.write(line)
        process.stdin.flush()
        peak = int(re.search(r"VmHWM:\s+(\d+) kB", pathlib.Path(f"/proc/{process.pid}/status").read_text())[1])
        process.stdin.close()
        reader.join()
        assert process.wait() == 0
    assert peak < 64 * 1024


def test_a_line_larger_than_the_memory(native, example):
    result = native.run("text", "--plugin", example, input=b"k\n" + b"k" * 100_000_000,
                        preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_AS, (90_000_000, 90_000_000)))
    assert (result.code, result.out.decode()) == (3, "\u0995\n")
    assert result.err == "zorvak: out of memory\n"


def test_a_closed_pipe_ends_quietly(zorvak, example):
    with subprocess.Popen(zorvak.command("text", "--plugin", example), stdin=subprocess.PIPE,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE) as process:
        def feed():
            try:
                for _ in range(200):
                    process.stdin.write(b"k kh ek\n" * 10000)
                process.stdin.close()
            except BrokenPipeError:
                pass
        feeder = threading.Thread(target=feed)
        feeder.start()
        assert process.stdout.read(3) == "\u0995".encode()
        process.stdout.close()
        assert process.stderr.read() == b""
        process.wait(timeout=60)
        feeder.join()


def test_a_failed_write_is_a_failure(native, example):
    with open("/dev/full", "wb") as full:
        with pytest.raises(OSError):
            os.write(full.fileno(), b"x")
        result = native.run("text", "--plugin", example, input=b"k\n", stdout=full)
    assert result.code == 3
    assert "standard output" in result.err


def test_a_failed_read_is_a_failure(native, example, tmp_path):
    folder = os.open(tmp_path, os.O_RDONLY)
    try:
        result = native.run("text", "--plugin", example, stdin=folder)
    finally:
        os.close(folder)
    assert (result.code, result.out) == (3, b"")
    assert "standard input" in result.err


def test_both_programs_write_the_same(both, example):
    every_byte = bytes(range(256)) * 3 + b"\r\n" + bytes(reversed(range(256)))
    for kind in KINDS:
        for keep_going in [[], ["--keep-going"]]:
            native, windows = (program.run("text", "--plugin", example, "--input", kind, *keep_going,
                                           input=every_byte) for program in both)
            assert (native.code, native.out, native.err) == (windows.code, windows.out,
                                                             windows.err.replace("\r\n", "\n"))
