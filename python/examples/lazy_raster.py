"""The field strength around a site as a lazy raster, computed chunk by chunk.

    python3 lazy_raster.py [PIXELS]

PIXELS is the side of the raster (4000), of 25 m each. Nothing is computed before .compute(), and no
more than a few chunks are in memory at a time.
"""

import sys

import dask.array
import xarray

import vardel

PIXEL = 0.025  # km


def main(pixels):
    offset = (dask.array.arange(pixels, chunks=1000) - (pixels - 1) / 2) * PIXEL
    axis = xarray.DataArray(offset, dims="x")
    distance = ((axis**2 + axis.rename(x="y") ** 2) ** 0.5).rename("distance")

    field_strength = vardel.itu529_field_strength(450, distance, 60, area="Suburban", power=25)
    covered = (field_strength >= 32) & vardel.in_range("itu529", 450, distance, 60)

    print(f"{field_strength.sizes['x']} x {field_strength.sizes['y']} pixels in {field_strength.data.npartitions} chunks")
    print(f"{float(covered.mean().compute()):.2%} of the area has 32 dB(µV/m) and more")


if __name__ == "__main__":
    main(int(sys.argv[1]) if len(sys.argv) > 1 else 4000)
