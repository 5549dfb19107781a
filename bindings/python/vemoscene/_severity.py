"""How much a finding matters."""

import enum


class Severity(enum.IntEnum):
    """How much a finding matters; ordered."""

    NOTE = 0
    """Nothing that the scene graph has a place for is missing."""
    CHANGED = 1
    """Something is there, but not as the file says."""
    LOST = 2
    """Something in the file is not in the result."""
    REFUSED = 3
    """There is no result."""
