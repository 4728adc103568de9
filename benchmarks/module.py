"""The Python module over a million distances, beside a loop over its single calls and beside C++:
module.py BUILD. The values of the C++ curve go into memory that is already there; numpy's are new.
"""

import json
import subprocess
import sys
import time
from pathlib import Path

build = Path(sys.argv[1])
sys.path.insert(0, str(build / "python"))

import numpy as np

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


def curve_in_cpp(name):
    """ms"""
    runs = json.loads(subprocess.run(
        [build / "benchmarks/models_benchmark", f"--benchmark_filter=CurveOfAMillion/{name}$",
         "--benchmark_repetitions=10", "--benchmark_min_time=0.05", "--benchmark_format=json"],
        check=True, capture_output=True).stdout)["benchmarks"]
    return min(run["real_time"] for run in runs if run["run_type"] == "iteration") / 1e6


one_by_one = KM.tolist()
print(f"{'':15}{'array':>9}{'C++':>9}{'loop':>9}   array/C++   loop/array")
for model in vardel.MODELS:
    function = getattr(vardel, f"{model}_loss")
    array = fastest(lambda: function(450, KM), 30)
    cpp = curve_in_cpp(f"{model}_loss")
    loop = fastest(lambda: [function(450, km) for km in one_by_one], 3)
    print(f"{function.__name__:15}{array:6.1f} ms{cpp:6.1f} ms{loop:6.0f} ms{array / cpp:12.2f}{loop / array:13.1f}")
