"""zorvak convert: folders"""

from conftest import names, write


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
