"""The best server of a network over a whole country, computed by a cluster strip by strip.

    python3 country_coverage.py OUT [RESOLUTION [WORKERS]]

Writes the field strength of the strongest of the stations at each pixel, RESOLUTION m wide (1000),
into OUT: a .npy file for each strip of the raster, from north to south. No machine ever has more than
a few strips. With a scheduler elsewhere, Client("tcp://scheduler:8786") in place of the LocalCluster
is all that changes, if all see the folder.
"""

import functools
import sys

import dask.array
import numpy as np
from dask.distributed import Client, LocalCluster

import vardel

COUNTRY = (49.45, 2.5, 53.6, 7.25)  # south, west, north, east
STATIONS = [  # latitude, longitude, effective height in m
    (50.85, 4.35, 80), (51.05, 3.72, 60), (50.63, 5.57, 90), (51.92, 4.48, 70), (52.37, 4.90, 75),
    (52.09, 5.12, 110), (53.22, 6.57, 65), (49.70, 5.55, 120)]


def best_server(resolution):
    """dB(µV/m), lazy. All stations have the pixels of the first."""
    path = {"frequency": 390, "power": 25, "models": ["itu529"]}
    (latitude, longitude, height), *others = STATIONS
    first = vardel.coverage(latitude, longitude, base_height=height, grid="utm", bounds=COUNTRY,
                            resolution=resolution, **path)
    fields = [first["itu529"]]
    for latitude, longitude, height in others:
        fields.append(vardel.coverage(latitude, longitude, base_height=height, like=first, **path)["itu529"])
    return functools.reduce(np.fmax, fields)  # where there is no value, that of the other


def main(target, resolution, workers):
    with LocalCluster(n_workers=workers, threads_per_worker=1, dashboard_address=None) as cluster, Client(cluster):
        best = best_server(resolution)
        strips = best.data.rechunk((256, -1))
        dask.array.to_npy_stack(target, strips)
        print(f"{best.sizes['x']} x {best.sizes['y']} pixels, {len(STATIONS)} stations")
        print(f"{float((strips >= 32).mean().compute()):.1%} of them have 32 dB(µV/m) and more")


if __name__ == "__main__":
    main(sys.argv[1], float(sys.argv[2]) if len(sys.argv) > 2 else 1000,
         int(sys.argv[3]) if len(sys.argv) > 3 else None)
