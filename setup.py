"""Builds the Python package with CMake, which makes its module with the library inside. pyproject.toml has the rest."""

import re
import shutil
import subprocess
import sys
from pathlib import Path

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

PROJECT = Path(__file__).resolve().parent
LEFT_OUT = "TOOL", "TESTS", "EXAMPLES", "SELF_CHECK", "OS_SERVICES", "INSTALL"


class BuildWithCMake(build_ext):
    def build_extension(self, ext):
        folder = Path(self.build_temp).resolve()
        generator = ["-G", "Ninja"] if shutil.which("ninja") else []
        subprocess.run(["cmake", "-S", PROJECT, "-B", folder, *generator, "-DCMAKE_BUILD_TYPE=Release",
                        "-DZOREDID_PYTHON=ON", f"-DZOREDID_PYTHON_EXECUTABLE={sys.executable}",
                        "-DBUILD_SHARED_LIBS=OFF", *(f"-DZOREDID_{option}=OFF" for option in LEFT_OUT)], check=True)
        subprocess.run(["cmake", "--build", folder, "--parallel", "--target", "zoredid_python"], check=True)
        target = Path(self.get_ext_fullpath(ext.name)).parent
        target.mkdir(parents=True, exist_ok=True)
        for file in (folder / "ExternalDeviceLayer/Bindings/Python/zoredid").iterdir():
            shutil.copy2(file, target)


setup(
    version=re.search(r"ZorEdid VERSION ([\d.]+)", (PROJECT / "CMakeLists.txt").read_text(encoding="utf-8"))[1],
    ext_modules=[Extension("zoredid._zoredid", [], py_limited_api=True)],
    cmdclass={"build_ext": BuildWithCMake},
    options={"bdist_wheel": {"py_limited_api": "cp311"}},
)
