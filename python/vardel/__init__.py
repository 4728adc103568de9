"""Path loss and field strength for land mobile radio.

Four models, each with a function for the path loss in dB and one for the field strength in
dB(µV/m): itu529_loss, itu529_field_strength, and the same for davidson, cost231 and us.
Frequencies are in MHz, distances in km, heights in m, powers in W e.r.p.

All functions may be called from any thread, and compute without the interpreter's lock.
"""

from vardel._coverage import coverage
from vardel._ground import Contour, EffectiveHeights, contour, effective_heights
from vardel._models import (
    cost231_field_strength,
    cost231_loss,
    davidson_field_strength,
    davidson_loss,
    in_range,
    itu529_field_strength,
    itu529_loss,
    us_field_strength,
    us_loss,
)
from vardel._planning import (
    OUTCOMES,
    Reach,
    base_height_for,
    field_strength_for_received_power,
    from_watts,
    power_for,
    reach,
    received_power,
    to_watts,
)
from vardel._reports import (
    LOG_HEADS,
    FitStatistics,
    MeasuredFit,
    Term,
    coverage_rings,
    explain,
    log_line,
    measured_fit,
)
from vardel._vardel import (
    MODELS,
    Archive,
    ArchiveError,
    Curve,
    MeasuredTable,
    Run,
    __version__,
    read_measured,
)

__all__ = [
    "LOG_HEADS",
    "MODELS",
    "OUTCOMES",
    "Archive",
    "ArchiveError",
    "Contour",
    "Curve",
    "EffectiveHeights",
    "FitStatistics",
    "MeasuredFit",
    "MeasuredTable",
    "Reach",
    "Run",
    "Term",
    "base_height_for",
    "contour",
    "cost231_field_strength",
    "cost231_loss",
    "coverage",
    "coverage_rings",
    "davidson_field_strength",
    "davidson_loss",
    "effective_heights",
    "explain",
    "field_strength_for_received_power",
    "from_watts",
    "in_range",
    "itu529_field_strength",
    "itu529_loss",
    "log_line",
    "measured_fit",
    "power_for",
    "reach",
    "read_measured",
    "received_power",
    "to_watts",
    "us_field_strength",
    "us_loss",
]
