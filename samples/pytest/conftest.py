"""Fixtures for tests that drive a program with Ghosthand, and a picture of the desktop for each test that fails.

    python -m pip install pytest pytest-html pywin32 pillow
    python -m pytest --program C:\\path\\sample_host.exe --html report.html --self-contained-html

One desktop has one mouse and one focus: run one pytest at a time on it, without pytest-xdist.
"""

import base64
import io
import os
import subprocess
import sys

import pytest
from PIL import ImageGrab

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "python"))
import ghosthand_helpers  # noqa: E402


def pytest_addoption(parser):
    parser.addoption("--program", default="sample_host.exe", help="the program that is driven")


@pytest.fixture(scope="session")
def program(pytestconfig):
    """The running program: started once for all tests, since that takes longest, and ended after the last."""
    process = subprocess.Popen([pytestconfig.getoption("program")])
    yield process
    process.kill()
    process.wait()


@pytest.fixture
def host(program):
    """The program's main window. Dialogs that a test leaves open are closed after it."""
    window = ghosthand_helpers.main_window("sample_host")
    yield window
    while (dialog := window.ActiveDialog(0)) is not None:
        dialog.Close()
        if not ghosthand_helpers.wait_until_gone(dialog):
            pytest.exit("a dialog does not close: the tests that follow would meet it, too")


@pytest.hookimpl(wrapper=True)
def pytest_runtest_makereport(item, call):
    """The desktop as it is when a test fails, before fixtures tidy up, goes into the report."""
    report = yield
    html = item.config.pluginmanager.getplugin("html")
    if html and report.when == "call" and report.failed:
        picture = io.BytesIO()
        ImageGrab.grab().save(picture, "PNG")
        from pytest_html import extras

        report.extras = [*getattr(report, "extras", []),
                         extras.png(base64.b64encode(picture.getvalue()).decode())]
    return report
