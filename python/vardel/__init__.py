"""Path loss and field strength for land mobile radio.

Four models, each with a function for the path loss in dB and one for the field strength in
dB(µV/m): itu529_loss, itu529_field_strength, and the same for davidson, cost231 and us.
Frequencies are in MHz, distances in km, heights in m, powers in W e.r.p.

All functions may be called from any thread, and compute without the interpreter's lock.
"""

from vardel._ground import Contour, EffectiveHeights, contour, effective_heights
from vardel._vardel import (
    MODELS,
    Archive,
    ArchiveError,
    Curve,
    MeasuredTable,
    Reach,
    Run,
    __version__,
    cost231_field_strength,
    cost231_loss,
    davidson_field_strength,
    davidson_loss,
    field_strength_for_received_power,
    from_watts,
    in_range,
    itu529_field_strength,
    itu529_loss,
    reach,
    read_measured,
    received_power,
    to_watts,
    us_field_strength,
    us_loss,
)

__all__ = [
    "MODELS",
    "Archive",
    "ArchiveError",
    "Contour",
    "Curve",
    "EffectiveHeights",
    "MeasuredTable",
    "Reach",
    "Run",
    "contour",
    "cost231_field_strength",
    "cost231_loss",
    "davidson_field_strength",
    "davidson_loss",
    "effective_heights",
    "field_strength_for_received_power",
    "from_watts",
    "in_range",
    "itu529_field_strength",
    "itu529_loss",
    "reach",
    "read_measured",
    "received_power",
    "to_watts",
    "us_field_strength",
    "us_loss",
]
