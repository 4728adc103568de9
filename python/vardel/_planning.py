"""What is asked of the models backwards, and powers."""

from numbers import Real
from typing import Any, Literal, NamedTuple, overload

import numpy as np

from vardel import _vardel
from vardel._arrays import apply
from vardel._models import Model, Numbers, Texts

OUTCOMES: tuple[str, ...] = tuple(_vardel.OUTCOMES)
"""The outcomes of a reach in words, by their codes."""


class Reach(NamedTuple):
    """How far a station reaches, as reach gives it for one path.

    outcome     'ends': the goal is met from 0.1 km to km; 'everywhere': up to 300 km; 'late': not
                near the station, but farther out up to km; 'never'
    km          where service ends for the first time; 0 for 'never'
    in_range    whether the model covers that distance; for 'never' 0.1 km
    served      all of the service: pairs of distances in km, to a millimetre. There is more than
                one where the loss falls again
    """

    outcome: Literal["never", "ends", "everywhere", "late"]
    km: float
    in_range: bool
    served: list[tuple[float, float]]


def _goal(function: str, loss: Numbers, field_strength: Numbers) -> tuple[Numbers, np.int8]:
    """The value that is wanted, and the code of its quantity."""
    if (loss is None) == (field_strength is None):
        raise TypeError(f"{function} takes either loss or field_strength")
    return (field_strength, np.int8(1)) if loss is None else (loss, np.int8(0))


@overload
def reach(
    model: Model, frequency: float, base_height: float = 100.0, mobile_height: float = 1.5,
    area: str = "Urban", city: str = "Small/Medium", *,
    loss: float | None = None, field_strength: float | None = None, power: float = 1000.0,
    percent_time: float = 50.0, percent_locations: float = 50.0,
) -> Reach: ...
@overload
def reach(
    model: Texts, frequency: Numbers, base_height: Numbers = 100.0, mobile_height: Numbers = 1.5,
    area: Texts = "Urban", city: Texts = "Small/Medium", *,
    loss: Numbers = None, field_strength: Numbers = None, power: Numbers = 1000.0,
    percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0, outcome: bool = False,
) -> Any: ...
def reach(
    model: Texts, frequency: Numbers, base_height: Numbers = 100.0, mobile_height: Numbers = 1.5,
    area: Texts = "Urban", city: Texts = "Small/Medium", *,
    loss: Numbers = None, field_strength: Numbers = None, power: Numbers = 1000.0,
    percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0, outcome: bool = False,
) -> Any:
    """How far a station reaches, looked at from 0.1 to 300 km.

    The goal is a path loss of at most loss, in dB, or a field strength of at least field_strength,
    in dB(µV/m), with a power in W e.r.p. Give one of the two. model is 'itu529', 'davidson',
    'cost231' or 'us'; the other arguments are those of itu529_loss.

    For one path the result is a Reach; what is not finite, or not above zero where it must be, is a
    ValueError. Where an argument is an array the result is an array of distances in km: nan where
    the goal is met nowhere, or where an argument is wrong. With outcome=True there is an array of
    codes beside it, which OUTCOMES has in words.
    """
    wanted, quantity = _goal("reach", loss, field_strength)
    numbers = (frequency, base_height, mobile_height, percent_time, percent_locations, wanted, power)
    if all(isinstance(number, Real) for number in numbers) and not outcome and all(
            isinstance(text, str) for text in (model, area, city)):
        return Reach(*_vardel.reach_of_one(
            model, (frequency, 0.0, base_height, mobile_height, area, city,
                    percent_time, percent_locations, power), wanted, bool(quantity)))
    arguments = {
        "model": model, "frequency": frequency, "base_height": base_height,
        "mobile_height": mobile_height, "area": area, "city": city, "percent_time": percent_time,
        "percent_locations": percent_locations, "wanted": wanted, "quantity": quantity,
        "power": power}
    km = apply(_vardel.reach_km, arguments)
    return (km, apply(_vardel.reach_outcome, arguments)) if outcome else km


@overload
def base_height_for(
    model: Model, frequency: float, distance: float, mobile_height: float = 1.5,
    area: str = "Urban", city: str = "Small/Medium", *,
    loss: float | None = None, field_strength: float | None = None, power: float = 1000.0,
    percent_time: float = 50.0, percent_locations: float = 50.0,
) -> float: ...
@overload
def base_height_for(
    model: Texts, frequency: Numbers, distance: Numbers, mobile_height: Numbers = 1.5,
    area: Texts = "Urban", city: Texts = "Small/Medium", *,
    loss: Numbers = None, field_strength: Numbers = None, power: Numbers = 1000.0,
    percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0,
) -> Any: ...
def base_height_for(
    model: Texts, frequency: Numbers, distance: Numbers, mobile_height: Numbers = 1.5,
    area: Texts = "Urban", city: Texts = "Small/Medium", *,
    loss: Numbers = None, field_strength: Numbers = None, power: Numbers = 1000.0,
    percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0,
) -> Any:
    """The lowest base height in m that meets a goal at a distance, from 20 to 2500 m.

    It is 20 where already that height meets the goal, and nan where none does or an argument is
    wrong. Arguments and arrays are as for reach.
    """
    wanted, quantity = _goal("base_height_for", loss, field_strength)
    return apply(_vardel.base_height_m, {
        "model": model, "frequency": frequency, "distance": distance,
        "mobile_height": mobile_height, "area": area, "city": city, "percent_time": percent_time,
        "percent_locations": percent_locations, "wanted": wanted, "quantity": quantity,
        "power": power})


@overload
def power_for(
    model: Model, frequency: float, distance: float, base_height: float = 100.0,
    mobile_height: float = 1.5, area: str = "Urban", city: str = "Small/Medium", *,
    field_strength: float, percent_time: float = 50.0, percent_locations: float = 50.0,
) -> float: ...
@overload
def power_for(
    model: Texts, frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
    mobile_height: Numbers = 1.5, area: Texts = "Urban", city: Texts = "Small/Medium", *,
    field_strength: Numbers, percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0,
) -> Any: ...
def power_for(
    model: Texts, frequency: Numbers, distance: Numbers, base_height: Numbers = 100.0,
    mobile_height: Numbers = 1.5, area: Texts = "Urban", city: Texts = "Small/Medium", *,
    field_strength: Numbers, percent_time: Numbers = 50.0, percent_locations: Numbers = 50.0,
) -> Any:
    """The power in W e.r.p. that gives a field strength in dB(µV/m) at a distance.

    It is nan where an argument is wrong. Arguments and arrays are as for reach.
    """
    return apply(_vardel.power_w, {
        "model": model, "frequency": frequency, "distance": distance, "base_height": base_height,
        "mobile_height": mobile_height, "area": area, "city": city, "percent_time": percent_time,
        "percent_locations": percent_locations, "field_strength": field_strength})


@overload
def to_watts(power: float, unit: Literal["W", "kW", "dBm", "dBW"]) -> float: ...
@overload
def to_watts(power: Numbers, unit: Texts) -> Any: ...
def to_watts(power: Numbers, unit: Texts) -> Any:
    """A power in 'W', 'kW', 'dBm' or 'dBW' as watts. Both may be arrays."""
    return apply(_vardel.to_watts, {"power": power, "unit": unit})


@overload
def from_watts(watts: float, unit: Literal["W", "kW", "dBm", "dBW"]) -> float: ...
@overload
def from_watts(watts: Numbers, unit: Texts) -> Any: ...
def from_watts(watts: Numbers, unit: Texts) -> Any:
    """Watts as a power in 'W', 'kW', 'dBm' or 'dBW'. Both may be arrays."""
    return apply(_vardel.from_watts, {"watts": watts, "unit": unit})


@overload
def field_strength_for_received_power(
    received_power: float, frequency: float, antenna_gain: float = 0.0, cable_loss: float = 0.0,
) -> float: ...
@overload
def field_strength_for_received_power(
    received_power: Numbers, frequency: Numbers, antenna_gain: Numbers = 0.0, cable_loss: Numbers = 0.0,
) -> Any: ...
def field_strength_for_received_power(
    received_power: Numbers, frequency: Numbers, antenna_gain: Numbers = 0.0, cable_loss: Numbers = 0.0,
) -> Any:
    """The field strength in dB(µV/m) that gives a receiver a power in dBm.

    The frequency is in MHz, the antenna's gain in dBi, the loss of its cable in dB. Each may be an
    array.

    Source: ITU-R Recommendation P.525.
    """
    return apply(_vardel.field_strength_for_received_power, {
        "received_power": received_power, "frequency": frequency,
        "antenna_gain": antenna_gain, "cable_loss": cable_loss})


@overload
def received_power(
    field_strength: float, frequency: float, antenna_gain: float = 0.0, cable_loss: float = 0.0,
) -> float: ...
@overload
def received_power(
    field_strength: Numbers, frequency: Numbers, antenna_gain: Numbers = 0.0, cable_loss: Numbers = 0.0,
) -> Any: ...
def received_power(
    field_strength: Numbers, frequency: Numbers, antenna_gain: Numbers = 0.0, cable_loss: Numbers = 0.0,
) -> Any:
    """The power in dBm that a receiver gets from a field strength in dB(µV/m).

    It is the inverse of field_strength_for_received_power.
    """
    return apply(_vardel.received_power, {
        "field_strength": field_strength, "frequency": frequency,
        "antenna_gain": antenna_gain, "cable_loss": cable_loss})
