"""A second computation of the GB 50429-2007 check engine, written apart from the first one.

It shares no source, no table and no helper with the program; both start from the rules only, so a
slip in one of them shows as a disagreement. Units: N, mm, MPa.
"""

from .engine import evaluate

__all__ = ["evaluate"]
