"""Field strength over the distance by the three models, with the reach for a receiver.

    python3 field_strength.py [PICTURE]
"""

import sys

import matplotlib
import numpy as np

if len(sys.argv) > 1:
    matplotlib.use("Agg")
import matplotlib.pyplot as plt

import vardel

FREQUENCY = 450  # MHz
BASE_HEIGHT = 100  # m
POWER = vardel.to_watts(50, "dBm")

MODELS = {
    "itu529": ("ITU-R P.529", vardel.itu529_field_strength, "green"),
    "davidson": ("Davidson", vardel.davidson_field_strength, "red"),
    "cost231": ("COST 231", vardel.cost231_field_strength, "mediumblue"),
}


def main():
    wanted = vardel.field_strength_for_received_power(-100, FREQUENCY, cable_loss=2)
    km = np.geomspace(0.5, 100, 500)
    figure, axes = plt.subplots(figsize=(8, 5), layout="constrained")
    for model, (title, field_strength, color) in MODELS.items():
        values = field_strength(FREQUENCY, km, BASE_HEIGHT, power=POWER)
        covered = vardel.in_range(model, FREQUENCY, km, BASE_HEIGHT)
        reach = vardel.reach(model, FREQUENCY, BASE_HEIGHT, field_strength=wanted, power=POWER)
        axes.plot(km, np.where(covered, values, np.nan), color=color)
        axes.plot(km, np.where(covered, np.nan, values), color=color, linestyle=":")
        label = f"{title}: {reach.km:.1f} km" + ("" if reach.in_range else ", out of range")
        axes.plot([], [], color=color, label=label)
        axes.plot(reach.km, wanted, "o", color=color)
    axes.axhline(wanted, color="gray", linewidth=0.8, label=f"-100 dBm at the receiver: {wanted:.1f} dB(µV/m)")
    axes.set(xscale="log", xlabel="Distance, km", ylabel="Field strength, dB(µV/m)",
             title=f"{FREQUENCY} MHz, {BASE_HEIGHT} m, {POWER:.0f} W e.r.p., urban; dotted: out of the model's range")
    axes.xaxis.set_major_formatter("{x:g}")
    axes.grid(True, which="both", alpha=0.3)
    axes.legend()
    if len(sys.argv) > 1:
        figure.savefig(sys.argv[1], dpi=120)
    else:
        plt.show()


main()
