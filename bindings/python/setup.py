"""The wheel holds libraries of this machine's kind, which any Python 3 loads."""

from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel


class BinaryDistribution(Distribution):
    def has_ext_modules(self) -> bool:
        return True


class LibraryWheel(bdist_wheel):
    def get_tag(self) -> tuple[str, str, str]:
        return "py3", "none", super().get_tag()[2]


setup(distclass=BinaryDistribution, cmdclass={"bdist_wheel": LibraryWheel})
