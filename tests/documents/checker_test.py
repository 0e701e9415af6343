"""The reading and running of documents itself: what is wrong in one is found."""

from pathlib import Path

import pytest

from document import Fence, Row, anchor_of, read
from session import Session, steps_of


def document(text):
    return read(Path("some.md"), text)


def test_a_remark_belongs_to_the_block_behind_it_alone():
    found = document("<!-- files:\na.txt\nb.txt\n-->\n```console\n$ ls\n```\n\n```sh\nmake\n```\n").fences
    assert [fence.remark for fence in found] == [("files", "a.txt\nb.txt"), ("", "")]


def test_a_remark_does_not_reach_over_a_paragraph():
    assert document("<!-- files: a -->\n\nText.\n\n```sh\nls\n```\n").fences[0].remark == ("", "")


def test_rows_of_a_table_are_read_with_their_first_codes():
    found = document("<!-- rows: echo {1} -->\n| a | b |\n|---|---|\n| `x` or `y` | `z` |\n| none | none |\n").rows
    assert found == [Row(4, ["x", "z"], ("rows", "echo {1}"))]


def test_anchors_are_those_of_headings():
    assert document("# One\n## What `<D>` gives, here\n").anchors == {"one", "what-d-gives-here"}
    assert anchor_of("Where settings live") == "where-settings-live"


def test_a_command_goes_on_behind_the_second_prompt():
    assert steps_of("$ cat <<E\n> a\n> E\na\n$ true\n") == [("cat <<E\na\nE", "a\n"), ("true", "")]


def test_output_in_front_of_a_command_is_refused():
    with pytest.raises(ValueError):
        steps_of("output\n$ true\n")


def test_files_have_the_size_and_the_time_that_are_said():
    with Session(["'a b.txt' size=12 modified=2024-07-03T14:07:09", "folder/"]) as session:
        assert session.check("$ stat -c '%s %y' 'a b.txt'\n12 2024-07-03 14:07:09.000000000 +0000\n") == ""
        assert session.check("$ ls -p\n'a b.txt'\nfolder/\n") != ""  # ls quotes on terminals alone
        assert session.check("$ ls -p\na b.txt\nfolder/\n") == ""


def test_another_output_than_is_shown_is_told():
    with Session([]) as session:
        assert session.check("$ echo a\nb\n") == "$ echo a\n--- gives\na\n--- but the document shows\nb\n"
        assert session.check("$ true\nsomething\n") != ""
        assert session.check("$ echo a\n") != ""


def test_folder_and_status_go_on_to_the_next_command():
    with Session(["folder/a"]) as session:
        assert session.check("$ cd folder\n$ ls\na\n$ false\n$ echo $?\n1\n") == ""


def test_batches_are_compared_without_their_time():
    with Session(["IMG_1.jpg", "IMG_2.jpg"]) as session:
        shown = '2 files renamed. "multirename undo 20240305-140709-001" takes that back.\n'
        assert session.check("$ multirename rename *.jpg --text 1=A\n" + shown) == ""
        assert session.check("$ multirename undo\nBatch 20240305-140709-001: 3 files have their old names again.\n") != ""


def test_fences_know_their_line():
    assert document("Text.\n\n```sh\nls\n```\n").fences == [Fence(3, "sh", "ls\n")]
