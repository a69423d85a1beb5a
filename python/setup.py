"""A wheel for every Python 3 of one system: the library inside is the system's, no code is compiled
for the interpreter."""
from setuptools import Distribution, setup
from wheel.bdist_wheel import bdist_wheel


class WithLibrary(Distribution):
    def has_ext_modules(self):
        return True


class AnyPython(bdist_wheel):
    def get_tag(self):
        return "py3", "none", super().get_tag()[2]


setup(distclass=WithLibrary, cmdclass={"bdist_wheel": AnyPython})
