#!/usr/bin/env bash
# Installs the Python module by pip, without the network, into a fresh environment and tests it there: with
# the libraries whose arrays it takes, and with numpy alone.
# Needs what scripts/setup.sh test installs.
set -euo pipefail
source "$(dirname "$0")/../scripts/common.sh"
takes '' "$@"
cd "$(dirname "$0")/.."

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
/usr/bin/python3 -m venv --system-site-packages "$work/python"
"$work/python/bin/pip" install --quiet --no-index .
"$work/python/bin/python" -B -m pytest -q -p no:cacheprovider python/tests
cat > "$work/numpy_alone.py" <<'END'
import sys

for name in ("dask", "distributed", "matplotlib", "pandas", "xarray"):
    sys.modules[name] = None  # an import of it fails
END
PYTHONPATH=$work "$work/python/bin/python" -B -m pytest -q -p no:cacheprovider -p numpy_alone python/tests
