"""What docs/encoding-source.md shows is what the program does."""

import re

from conftest import ROOT

PAGE = (ROOT / "docs/encoding-source.md").read_text(encoding="utf-8")


def block(kind):
    return re.search(f"```{kind}\n(.*?)```", PAGE, re.S).group(1)


def test_the_example_of_the_page(zorvak, tmp_path):
    (tmp_path / "Demo.txt").write_bytes(block("rules").encode())
    commands = re.split(r"^\$ ", block("console"), flags=re.M)[1:]
    assert len(commands) == 3
    for command in commands:
        line, _, expected = command.partition("\n")
        typed = b""
        if line.startswith("echo "):
            echo, _, line = line.partition(" | ")
            typed = echo.split("'")[1].encode() + b"\n"
        result = zorvak.run(*line.split()[1:], input=typed, cwd=tmp_path)
        assert (result.code, result.err) == (0, ""), result
        assert result.out.decode() == expected

