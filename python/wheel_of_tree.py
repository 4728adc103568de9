"""What pip needs to make a wheel of the tree: the build by CMake, and a zip file of what it installs.

It is written out here because a wheel takes nothing but the standard library then, so that pip has
nothing to fetch. See PEP 517 for the functions, PEP 427 for the wheel.
"""

import base64
import hashlib
import os
import re
import subprocess
import sys
import sysconfig
import tempfile
import zipfile
from pathlib import Path

import tomllib

TREE = Path(__file__).resolve().parent.parent


def project():
    fields = tomllib.loads((TREE / "pyproject.toml").read_text())["project"]
    version = re.search(r"project\(vardel VERSION ([\d.]+)", (TREE / "CMakeLists.txt").read_text())[1]
    return fields, version


def description():
    """The files that tell of the wheel, by their names below its folder for them, and that folder."""
    fields, version = project()
    lines = ["Metadata-Version: 2.1", f"Name: {fields['name']}", f"Version: {version}",
             f"Summary: {fields['description']}", "License: GPL-3.0-or-later",
             f"Requires-Python: {fields['requires-python']}"]
    lines += [f"Requires-Dist: {name}" for name in fields["dependencies"]]
    return f"vardel-{version}.dist-info", {
        "METADATA": "\n".join(lines) + "\n",
        "WHEEL": f"Wheel-Version: 1.0\nRoot-Is-Purelib: false\nTag: {tag()}\n"}


def tag():
    python = f"cp{sys.version_info.major}{sys.version_info.minor}"
    platform = re.sub(r"[-.]", "_", sysconfig.get_platform())
    return f"{python}-{python}-{platform}"


def build(work):
    """Installs the package below work."""
    # pip's environment for builds hides numpy, whose headers the extension needs.
    environment = {name: value for name, value in os.environ.items() if name != "PYTHONPATH"}

    def cmake(*arguments):
        subprocess.run(["cmake", *map(str, arguments)], check=True, stdout=sys.stderr, env=environment)

    made = work / "build"
    cmake("-S", TREE, "-B", made, "-DCMAKE_BUILD_TYPE=Release", "-DVARDEL_GUI=OFF", "-DVARDEL_TESTS=OFF",
          "-DVARDEL_TERRAIN=OFF",
          "-DVARDEL_PYTHON=REQUIRED", f"-DPython3_EXECUTABLE={sys.executable}", "-DVARDEL_PYTHON_FOLDER=.")
    cmake("--build", made, "--target", "vardel_python", "--parallel", os.cpu_count() or 1)
    cmake("--install", made / "python", "--prefix", work / "package", "--strip")
    return work / "package"


def prepare_metadata_for_build_wheel(metadata_directory, config_settings=None):
    info, texts = description()
    (Path(metadata_directory) / info).mkdir()
    for name, text in texts.items():
        (Path(metadata_directory) / info / name).write_text(text)
    return info


def build_wheel(wheel_directory, config_settings=None, metadata_directory=None):
    info, texts = description()
    wheel = f"{info.removesuffix('.dist-info')}-{tag()}.whl"
    with tempfile.TemporaryDirectory() as work:
        package = build(Path(work))
        files = {str(file.relative_to(package)): file.read_bytes()
                 for file in sorted(package.rglob("*")) if file.is_file()}
    files |= {f"{info}/{name}": text.encode() for name, text in texts.items()}
    record = ""
    with zipfile.ZipFile(Path(wheel_directory) / wheel, "w", zipfile.ZIP_DEFLATED) as archive:
        for name, content in files.items():
            digest = base64.urlsafe_b64encode(hashlib.sha256(content).digest()).rstrip(b"=").decode()
            record += f"{name},sha256={digest},{len(content)}\n"
            archive.writestr(name, content)
        archive.writestr(f"{info}/RECORD", f"{record}{info}/RECORD,,\n")
    return wheel


def build_sdist(sdist_directory, config_settings=None):
    raise NotImplementedError("Vardel is installed from its tree.")
