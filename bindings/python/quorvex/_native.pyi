# The compiled part. Its callers, all in __init__.py, have checked the arguments.
from typing import Any, Dict, List, Optional, Tuple

import numpy as np

version: str
point_dtype: np.dtype
mark_dtype: np.dtype
refined_dtype: np.dtype
most_grid_lines: int

def detect(
    image: np.ndarray, row_span: int, column_span: int, row_steps: int, diagnostics: bytes, /
) -> Optional[np.ndarray]: ...
def detect_precise(
    image: np.ndarray,
    colour: int,
    predict_missing: bool,
    continuous_lines: bool,
    board: Tuple[int, int],
    /,
) -> Tuple[np.ndarray, Dict[str, Any], str, str]: ...
def refine_marks(
    image: np.ndarray, positions: List[List[float]], colour: int, /
) -> Tuple[np.ndarray, List[str]]: ...
def add(points: np.ndarray, x: float, y: float, /) -> np.ndarray: ...
def delete(points: np.ndarray, id: int, /) -> Optional[np.ndarray]: ...
def delete_at(points: np.ndarray, x: float, y: float, /) -> Optional[np.ndarray]: ...
def alter(
    points: np.ndarray, id: int, row: int, col: int, x: float, y: float, /
) -> Optional[np.ndarray]: ...
def query(points: np.ndarray, id: int, /) -> Optional[np.ndarray]: ...
def renumber(points: np.ndarray, rows: int, columns: int, /) -> Optional[np.ndarray]: ...
def rearrange(points: np.ndarray, is_left: bool, count: int, /) -> Optional[np.ndarray]: ...
