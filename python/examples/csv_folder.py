"""A folder of CSV files larger than the memory, calculated by Dask on all processors or a cluster.

    python3 csv_folder.py IN OUT [WORKERS]

Reads IN/*.csv, with the columns of `vardel-calc batch`, and writes the rows with path loss and field
strength of the three models into OUT: as Parquet where pyarrow is installed, else as CSV. With a
scheduler elsewhere, Client("tcp://scheduler:8786") in place of the LocalCluster is all that changes.
"""

import importlib.util
import resource
import sys

import dask.dataframe
from dask.dataframe.utils import make_meta
from dask.distributed import Client, LocalCluster

import vardel


def calculated(paths):
    """A chunk of rows, a pandas.DataFrame, with the results beside them."""
    path = {
        "frequency": paths["frequency_mhz"], "distance": paths["distance_km"],
        "base_height": paths["base_height_m"], "mobile_height": paths["mobile_height_m"],
        "area": paths["area"], "city": paths["city"],
        "percent_time": paths["percent_time"], "percent_locations": paths["percent_locations"],
    }
    power = paths["power_w"]
    return paths.assign(
        itu529_loss_db=vardel.itu529_loss(**path),
        davidson_loss_db=vardel.davidson_loss(**path),
        cost231_loss_db=vardel.cost231_loss(**path),
        itu529_field_dbuvm=vardel.itu529_field_strength(**path, power=power),
        davidson_field_dbuvm=vardel.davidson_field_strength(**path, power=power),
        cost231_field_dbuvm=vardel.cost231_field_strength(**path, power=power),
    )


def most_memory():
    """MiB that this process ever had."""
    return resource.getrusage(resource.RUSAGE_SELF).ru_maxrss / 1024


def main(source, target, workers):
    with LocalCluster(n_workers=workers, threads_per_worker=1, dashboard_address=None) as cluster, \
            Client(cluster) as client:
        paths = dask.dataframe.read_csv(
            f"{source}/*.csv", blocksize="16MB", float_precision="round_trip",
            dtype={"area": "category", "city": "category"} | dict.fromkeys(
                ["frequency_mhz", "distance_km", "base_height_m", "mobile_height_m",
                 "percent_time", "percent_locations", "power_w"], float))
        # Dask would find the result's columns by a row of made-up texts, which are no areas.
        results = paths.map_partitions(calculated, meta=calculated(make_meta(paths)))
        if importlib.util.find_spec("pyarrow"):
            results.to_parquet(target)
        else:
            results.to_csv(f"{target}/*.csv", index=False)
        for worker, mib in client.run(most_memory).items():
            print(f"{worker}: {mib:.0f} MiB at most")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2], int(sys.argv[3]) if len(sys.argv) > 3 else None)
