"""The Python module beside a loop over its single calls, beside C++ and on two threads: module.py BUILD.
The values of the C++ curve go into memory that is already there; numpy's are new.
"""

import json
import subprocess
import sys
import threading
import time
from pathlib import Path

build = Path(sys.argv[1])
sys.path.insert(0, str(build / "python"))

import numpy as np
import pandas

import vardel

KM = np.linspace(0.1, 300, 1_000_000)


def fastest(function, times):
    """ms"""
    taken = []
    for _ in range(times):
        start = time.perf_counter()
        function()
        taken.append(time.perf_counter() - start)
    return 1000 * min(taken)


def in_cpp(program, name):
    """ms"""
    runs = json.loads(subprocess.run(
        [build / f"benchmarks/{program}_benchmark", f"--benchmark_filter={name}$",
         "--benchmark_repetitions=10", "--benchmark_min_time=0.05", "--benchmark_format=json"],
        check=True, capture_output=True).stdout)["benchmarks"]
    runs = [run for run in runs if run["run_type"] == "iteration"]
    return min(run["real_time"] for run in runs) / {"ns": 1e6, "ms": 1}[runs[0]["time_unit"]]


def paths_that_differ_in_all():
    """A million, of the kinds of paths of the benchmark of batches."""
    random = np.random.default_rng(1)
    some = {
        "frequency": random.uniform(150, 2000, 4096), "distance": random.uniform(1, 100, 4096),
        "base_height": random.uniform(30, 200, 4096), "mobile_height": random.uniform(1, 10, 4096),
        "percent_time": random.uniform(1, 99, 4096),
        "percent_locations": random.uniform(1, 99, 4096), "power": random.uniform(1, 1000, 4096)}
    areas = pandas.Categorical.from_codes(np.arange(1_000_000) % 4096 % 3, ["Urban", "Suburban", "Open"])
    return {name: np.resize(values, 1_000_000) for name, values in some.items()} | {"area": areas}


def all_results(paths):
    """Of the three models, as a batch has them."""
    power = paths["power"]
    path = {name: values for name, values in paths.items() if name != "power"}
    for model in ("itu529", "davidson", "cost231"):
        getattr(vardel, f"{model}_loss")(**path)
        getattr(vardel, f"{model}_field_strength")(**path, power=power)
        vardel.in_range(model, path["frequency"], path["distance"], path["base_height"], path["mobile_height"])


def on_threads(count, km, out):
    parts = zip(np.split(km, count), np.split(out, count))
    threads = [threading.Thread(target=vardel.itu529_loss, args=(450, part), kwargs={"out": result})
               for part, result in parts]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()


one_by_one = KM.tolist()
print(f"{'':15}{'array':>9}{'C++':>9}{'loop':>9}   array/C++   loop/array")
for model in vardel.MODELS:
    function = getattr(vardel, f"{model}_loss")
    array = fastest(lambda: function(450, KM), 30)
    cpp = in_cpp("models", f"CurveOfAMillion/{model}_loss")
    loop = fastest(lambda: [function(450, km) for km in one_by_one], 3)
    print(f"{function.__name__:15}{array:6.1f} ms{cpp:6.1f} ms{loop:6.0f} ms{array / cpp:12.2f}{loop / array:13.1f}")

paths = paths_that_differ_in_all()
array = fastest(lambda: all_results(paths), 5)
cpp = in_cpp("batch", "CallsAlone")
print(f"{'every_input':15}{array:6.0f} ms{cpp:6.0f} ms{array / cpp:21.2f}")
ten_million = np.linspace(0.1, 300, 10_000_000)
values = np.empty_like(ten_million)
one, two = (min(times) for times in zip(*(
    [fastest(lambda: on_threads(count, ten_million, values), 1) for count in (1, 2)] for _ in range(9))))
wall, busy = time.perf_counter(), time.process_time()
on_threads(2, ten_million, values)
busy = (time.process_time() - busy) / (time.perf_counter() - wall)
# Two processors that share a core are slower than two: those that were busy tell of waiting.
print(f"{'two_threads':15}{two:6.0f} ms{one:6.0f} ms of one thread{one / two:8.2f} times, {busy:.2f} processors busy")
