import numpy as np
import pytest
from conftest import detect_by_command, read_bmp

import quorvex

KINDS = {
    "measured": quorvex.Verdict.MEASURED,
    "doubtful": quorvex.Verdict.DOUBTFUL,
    "predicted": quorvex.Verdict.PREDICTED,
}


def test_gives_the_commands_marks(render):
    path = render("dropped")
    marks = quorvex.detect_precise(read_bmp(path), predict_missing=True)
    rows = detect_by_command(path, "--precise", "--predict")
    assert marks.dtype == quorvex.MARK_DTYPE
    assert len(marks) == len(rows) == 81
    for mark, row in zip(marks, rows):
        assert mark["id"] == int(row["id"])
        assert (mark["row"], mark["col"]) == (int(row["row"]), int(row["col"]))
        assert mark["verdict"] == KINDS[row["kind"]]
        for name in ("x", "y", "cxx", "cxy", "cyy"):
            assert mark[name] == pytest.approx(float(row[name]), rel=6e-6)
    assert np.count_nonzero(marks["verdict"] == quorvex.Verdict.PREDICTED) == 5
    assert np.all(marks["cxx"] * marks["cyy"] > marks["cxy"] ** 2)


def test_facts_come_when_asked_for(easy, empty_folder):
    marks, facts = quorvex.detect_precise(easy, return_facts=True)
    assert np.array_equal(marks, quorvex.detect_precise(easy))
    assert 0.5 < facts["noise"] < 2.0
    assert 2.0 < facts["stroke_width"] < 4.0
    assert facts["has_light_marks"] is False and facts["has_fixed_rows"] is False
    assert np.shape(facts["camera"]["rotation"]) == (3, 3)
    assert np.shape(facts["camera"]["translation"]) == (3,)
    assert facts["camera"]["focal_length"] > 0
    assert list(empty_folder.iterdir()) == []


def test_light_marks_are_found_when_asked_for(easy):
    light = 255 - easy
    marks, facts = quorvex.detect_precise(light, return_facts=True)
    assert len(marks) == 48 and facts["has_light_marks"] is True
    assert len(quorvex.detect_precise(light, "light")) == 48
    with pytest.raises(quorvex.DetectionError):
        quorvex.detect_precise(light, colour="dark")


def test_labels_are_the_boards_where_it_is_known(easy):
    marks, facts = quorvex.detect_precise(easy, board=(6, 8), return_facts=True)
    assert facts["has_fixed_rows"] is True and facts["has_fixed_columns"] is True
    assert len(marks) == 48
    with pytest.raises(quorvex.DetectionError) as caught:
        quorvex.detect_precise(easy, board=(3, 3))
    assert caught.value.stage == "size"


def test_wrong_arguments_are_named(easy):
    with pytest.raises(ValueError, match="colour: expected 'either', 'dark' or 'light', given 'b'"):
        quorvex.detect_precise(easy, "b")
    with pytest.raises(TypeError, match="colour: expected a str, given 1"):
        quorvex.detect_precise(easy, 1)
    with pytest.raises(TypeError, match=r"board: expected None or \(rows, columns\), given 9"):
        quorvex.detect_precise(easy, board=9)
    with pytest.raises(ValueError, match=r"board\[1\]: expected 1 to 1000, given 0"):
        quorvex.detect_precise(easy, board=(9, 0))


@pytest.mark.parametrize("name", ["predict_missing", "continuous_lines", "return_facts"])
def test_switches_are_true_or_false(easy, name):
    for value in ("no", 1, None):
        with pytest.raises(TypeError, match=f"{name}: expected True or False, given {value!r}"):
            quorvex.detect_precise(easy, **{name: value})
    quorvex.detect_precise(easy, **{name: np.True_})


def test_a_picture_without_a_target_says_where_and_why():
    with pytest.raises(quorvex.DetectionError, match="no target was found: hardly any") as caught:
        quorvex.detect_precise(np.full((64, 64), 128, np.uint8))
    assert caught.value.stage == "seed"


def test_points_are_refined_or_say_why_not(easy):
    points = quorvex.detect(easy)
    refined = quorvex.refine_marks(easy, points)
    assert refined.dtype == quorvex.REFINED_DTYPE
    assert refined["refined"].all() and (refined["reason"] == "").all()
    marks = quorvex.detect_precise(easy)
    assert np.abs(refined["x"] - marks["x"]).max() < 0.05
    assert np.abs(refined["y"] - marks["y"]).max() < 0.05
    stray = quorvex.refine_marks(easy, [(5, 6)], colour="dark")
    assert (stray["x"][0], stray["y"][0], stray["refined"][0]) == (5, 6, False)
    assert stray["reason"][0] == "no strokes cross within 4 px"
    assert quorvex.refine_marks(easy, np.empty((0, 2))).shape == (0,)


@pytest.mark.parametrize("positions", [None, 3, [1, 2], [(1, 2, 3)], "ab", np.zeros((2, 2, 2))])
def test_wrong_positions_are_named(easy, positions):
    with pytest.raises(TypeError, match="positions: expected .* given"):
        quorvex.refine_marks(easy, positions)
    with pytest.raises(ValueError, match="positions: expected finite"):
        quorvex.refine_marks(easy, [(np.nan, 1)])
