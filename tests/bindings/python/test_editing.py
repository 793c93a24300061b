import numpy as np
import pytest

import quorvex


def grid_of(rows, columns):
    """Points without places whose spacing shrinks from the middle outwards, row by row."""
    points = np.zeros(rows * columns, quorvex.POINT_DTYPE)
    row, column = np.divmod(np.arange(rows * columns), columns)
    x = column - (columns - 1) / 2
    y = row - (rows - 1) / 2
    scale = 100 - 2 * (x**2 + y**2)
    points["x"] = 500 + scale * x
    points["y"] = 500 + scale * y
    for name in ("id", "row", "col"):
        points[name] = -1
    return points


def test_edits_give_new_lists():
    points = grid_of(2, 3)
    before = points.copy()
    assert len(quorvex.add(points, 10, 20.5)) == 7
    added = quorvex.add(points, 10, 20.5)[-1]
    assert added.tolist() == (-1, -1, -1, 10.0, 20.5)
    numbered = quorvex.renumber(points, 2, 3)
    assert np.array_equal(points, before)
    assert numbered["id"].tolist() == [1, 4, 2, 5, 3, 6]
    assert numbered["row"].tolist() == [0, 1, 0, 1, 0, 1]
    assert quorvex.query(numbered, 6).tolist()[:3] == (6, 1, 2)
    assert quorvex.delete(numbered, 6)["id"].tolist() == [1, 4, 2, 5, 3]
    near = quorvex.query(numbered, 2)
    assert quorvex.delete_at(numbered, near["x"] + 8, near["y"] - 8)["id"].tolist() == [1, 4, 5, 3, 6]
    altered = quorvex.alter(numbered, 4, 7, 8, 1.5, 2.5)
    assert quorvex.query(altered, 4).tolist() == (4, 7, 8, 1.5, 2.5)


def test_rearranges_for_both_cameras():
    numbered = quorvex.renumber(grid_of(3, 3), 3, 3)
    left = quorvex.rearrange_left(numbered)
    assert np.array_equal(left, quorvex.rearrange_left(numbered, columns=3))
    corner = quorvex.query(left, 1)  # the leftmost column, the largest y
    assert corner["x"] < 450 and corner["y"] == left["y"][left["row"] == 0].max()
    right = quorvex.rearrange_right(numbered)
    assert len(right) == 9


def test_cameras_count_a_partial_column_from_different_ends():
    numbered = quorvex.renumber(grid_of(3, 3), 3, 3)
    partial = quorvex.delete(numbered, 1)  # the uppermost point of the leftmost column
    for rearrange, cols in [(quorvex.rearrange_left, [1, 0]), (quorvex.rearrange_right, [2, 1])]:
        rearranged = rearrange(partial, 3)
        column = np.sort(rearranged[rearranged["row"] == 0], order="y")
        assert column["col"].tolist() == cols
        assert column["id"].tolist() == [col + 1 for col in cols]


def test_marks_of_the_precise_detection_are_points_too(easy):
    marks = quorvex.detect_precise(easy)
    numbered = quorvex.renumber(marks, 6, 8)
    assert numbered.dtype == quorvex.POINT_DTYPE
    assert sorted(numbered["id"]) == list(range(1, 49))


@pytest.mark.parametrize(
    "edit",
    [
        lambda points: quorvex.query(points, 99),
        lambda points: quorvex.delete(points, 99),
        lambda points: quorvex.alter(points, 99, 0, 0, 0.0, 0.0),
    ],
)
def test_ids_that_are_not_there_are_named(edit):
    with pytest.raises(ValueError, match="id: expected the id of a point in the list, given 99"):
        edit(grid_of(2, 2))


def test_what_cannot_be_done_is_named():
    points = grid_of(2, 3)
    with pytest.raises(ValueError, match="points: expected 2 x 2 points, 4 in all, given 6"):
        quorvex.renumber(points, 2, 2)
    with pytest.raises(ValueError, match="points: expected a grid of 1 x 6 points whose spacing"):
        quorvex.renumber(points, 1, 6)
    with pytest.raises(ValueError, match="points: expected points with a col from 0 to 2, given"):
        quorvex.rearrange_left(points, 3)
    with pytest.raises(ValueError, match="x, y: expected less than 9 pixels .* given"):
        quorvex.delete_at(points, 0, 0)


def with_field(name, dtype, value):
    """Two points with a field of another type, whose last value is the one given."""
    types = {"id": "i4", "row": "i4", "col": "i4", "x": "f4", "y": "f4", name: dtype}
    points = np.zeros(2, list(types.items()))
    points[name][-1] = value
    return points


@pytest.mark.parametrize(
    "name, dtype, value, error, message",
    [
        ("id", "i8", 2**40 + 5, ValueError, "expected -2147483648 to 2147483647, given 1099511"),
        ("row", "u4", 2**31, ValueError, "expected -2147483648 to 2147483647, given 2147483648"),
        ("col", "u8", 2**64 - 1, ValueError, "expected -2147483648 to .*, given 184467440"),
        ("id", "f8", np.nan, TypeError, "expected integers, given an array .* float64"),
        ("id", "U4", "7", TypeError, "expected integers, given an array .* <U4"),
        ("row", "?", True, TypeError, "expected integers, given an array .* bool"),
        ("col", ("i4", 2), 1, TypeError, r"expected integers, given an array of shape \(2, 2\)"),
        ("x", "f8", 1e300, ValueError, "expected finite numbers of pixels, given 1e\\+300"),
        ("x", "f4", np.nan, ValueError, "expected finite numbers of pixels, given nan"),
        ("y", "f8", -np.inf, ValueError, "expected finite numbers of pixels, given -inf"),
        ("y", "U4", "1.5", TypeError, "expected numbers, given an array .* <U4"),
        ("y", "c16", 1j, TypeError, "expected numbers, given an array .* complex128"),
    ],
)
def test_fields_that_a_point_cannot_hold_are_named(name, dtype, value, error, message):
    with pytest.raises(error, match=rf'points\["{name}"\]: {message}'):
        quorvex.add(with_field(name, dtype, value), 1, 1)


@pytest.mark.parametrize("dtype", ["i1", "i8", "u8", ">i4"])
def test_fields_of_other_types_are_taken(dtype):
    assert quorvex.add(with_field("id", dtype, 7), 1, 1)["id"].tolist() == [0, 7, -1]
    assert quorvex.add(with_field("x", dtype, 7), 1, 1)["x"].tolist() == [0, 7, 1]


@pytest.mark.parametrize("dtype", ["f2", "f8", ">f4"])
def test_positions_of_other_types_are_taken(dtype):
    assert quorvex.add(with_field("x", dtype, 1.5), 1, 1)["x"].tolist() == [0, 1.5, 1]


@pytest.mark.parametrize(
    "edit, error, message",
    [
        (lambda p: quorvex.renumber(p, 0, 1), ValueError, "rows: expected 1 to 32768, given 0"),
        (lambda p: quorvex.renumber(p, 1, 40000), ValueError, "columns: expected 1 to 32768"),
        (lambda p: quorvex.rearrange_right(p, 0), ValueError, "columns: expected 1 to 32768"),
        (lambda p: quorvex.add(p, "a", 1), TypeError, "x: expected a number of pixels, given 'a'"),
        (lambda p: quorvex.add(p, "10", 1), TypeError, "x: expected a number of pixels, given '10'"),
        (lambda p: quorvex.add(p, 1, b"10"), TypeError, "y: expected a number of pixels, given b"),
        (lambda p: quorvex.add(p, 10**400, 1), ValueError, "x: expected a finite .* too large"),
        (lambda p: quorvex.add(p, 1, float("inf")), ValueError, "y: expected a finite number"),
        (lambda p: quorvex.delete(p, 1.5), TypeError, "id: expected an int, given 1.5"),
        (lambda p: quorvex.delete(p, 2**31), ValueError, "id: expected -2147483648 to 2147483647"),
        (lambda p: quorvex.add([1, 2], 1, 1), TypeError, "points: expected .* the fields id, row"),
        (lambda p: quorvex.add(p["x"], 1, 1), TypeError, "points: expected .* given an array"),
    ],
)
def test_wrong_arguments_are_named(edit, error, message):
    with pytest.raises(error, match=message):
        edit(grid_of(2, 2))
