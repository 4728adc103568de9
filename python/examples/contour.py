"""Contours of three models over real ground: the Jacksboro fault in Tennessee, from matplotlib's samples.

    python3 contour.py [PICTURE]

The elevations come from an array. With rasterio they would be those of any file:
tile.read(1, masked=True) and tile.transform.
"""

import sys

import matplotlib
import numpy as np

if len(sys.argv) > 1:
    matplotlib.use("Agg")
import matplotlib.cbook
import matplotlib.pyplot as plt
from matplotlib.colors import LightSource

import vardel

LATITUDE, LONGITUDE = 36.59, -84.24
ANTENNA = 40  # m above the ground
SERVICE = {"frequency": 155, "field_strength": 63, "power": 50, "area": "Open"}
MODELS = {"itu529": "green", "davidson": "red", "cost231": "mediumblue"}


def main():
    with np.load(matplotlib.cbook.get_sample_data("jacksboro_fault_dem.npz", asfileobj=False)) as ground:
        elevation, step = ground["elevation"], (float(ground["dx"]), float(ground["dy"]))
        # The file counts y from the north.
        west, north, east, south = (float(ground[edge]) for edge in ("xmin", "ymin", "xmax", "ymax"))
    to_map = (step[0], 0, west, 0, -step[1], north)  # as rasterio has it

    heights = vardel.effective_heights(
        elevation, to_map, latitude=LATITUDE, longitude=LONGITUDE, antenna=ANTENNA, azimuths=180)
    print(f"ground {heights.ground:.0f} m, effective height {heights.effective_height.min():.0f} to "
          f"{heights.effective_height.max():.0f} m, {heights.seen.mean():.0%} of the ground is known")

    figure, axes = plt.subplots(figsize=(8, 7), layout="constrained")
    axes.imshow(LightSource(315, 45).hillshade(elevation, vert_exag=0.1), cmap="gray",
                extent=(west, east, south, north), aspect=1 / np.cos(np.radians(LATITUDE)))
    for model, color in MODELS.items():
        contour = vardel.contour(heights, model, **SERVICE)
        for ring in contour.polygons:
            axes.plot(*np.transpose(ring), color=color)
        axes.plot([], [], color=color, label=f"{model}: {contour.distance.min():.1f} to {contour.distance.max():.1f} km")
    axes.plot(LONGITUDE, LATITUDE, "k^")
    axes.set(title="63 dB(µV/m) of 50 W at 155 MHz", xlabel="Longitude", ylabel="Latitude")
    axes.legend()
    if len(sys.argv) > 1:
        figure.savefig(sys.argv[1], dpi=120)
    else:
        plt.show()


main()
