"""The paths of a drive test with the best of three models: code that a type checker reads.

    mypy --strict typed_paths.py
"""

from __future__ import annotations

from dataclasses import dataclass

import numpy as np
from numpy.typing import NDArray

import vardel

MODELS = {
    "itu529": vardel.itu529_field_strength,
    "davidson": vardel.davidson_field_strength,
    "cost231": vardel.cost231_field_strength,
}


@dataclass(frozen=True)
class DriveTest:
    frequency: float  # MHz
    base_height: float  # m
    power: float  # W e.r.p.
    distance: NDArray[np.float64]  # km
    measured: NDArray[np.float64]  # dB(µV/m)


def best_model(test: DriveTest) -> tuple[str, float]:
    """The model whose errors have the smallest root mean square, and that in dB."""
    errors: dict[str, float] = {}
    for model, field_strength in MODELS.items():
        predicted: NDArray[np.float64] = field_strength(
            test.frequency, test.distance, test.base_height, power=test.power)
        errors[model] = float(np.sqrt(np.mean((predicted - test.measured) ** 2)))
    best = min(errors, key=errors.__getitem__)
    return best, errors[best]


def main() -> None:
    test = DriveTest(450.0, 100.0, vardel.to_watts(50.0, "dBm"),
                     np.array([1.0, 2.0, 5.0, 10.0]), np.array([79.0, 69.5, 56.0, 46.5]))
    model, rms = best_model(test)
    edge: vardel.Reach = vardel.reach("itu529", test.frequency, test.base_height,
                                      field_strength=40.0, power=test.power)
    one: float = vardel.itu529_loss(test.frequency, edge.km, test.base_height)
    print(f"{model}: {rms:.1f} dB; 40 dB(µV/m) up to {edge.km:.1f} km, a loss of {one:.1f} dB")


if __name__ == "__main__":
    main()
