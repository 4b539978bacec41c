# The browsers of the tests: chromium by its driver, Firefox by the protocol that it speaks itself. Both offer
#   open(address)          script(text, *arguments)       press(*keys)
#   script may await: it is the body of an async function. downloads is the folder where files are saved.

import json
import os
import shutil
import socket
import subprocess
import tempfile
import time

TAB, ENTER, ESCAPE, DOWN = "\ue004", "\ue007", "\ue00c", "\ue015"
# WebDriver's scripts are functions, whose last argument of an asynchronous one says that it has ended.
AWAITED = """const done = arguments[arguments.length - 1], given = [...arguments].slice(0, -1);
(async function () { %s }).apply(null, given).then(value => done({ value }), error => done({ error: String(error) }));"""


def take(answer):
    if "error" in answer:
        raise AssertionError(answer["error"])
    return answer.get("value")


class Chromium:
    NAME = "chromium"

    @staticmethod
    def is_there():
        try:
            import selenium  # noqa: F401
        except ImportError:
            return False
        return bool(shutil.which("chromium") and shutil.which("chromedriver"))

    def __init__(self, downloads):
        from selenium import webdriver
        from selenium.webdriver.chrome.service import Service
        options = webdriver.ChromeOptions()
        for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"):
            options.add_argument(argument)
        options.add_experimental_option("prefs", {
            "download.default_directory": downloads,
            "profile.default_content_setting_values.automatic_downloads": 1})  # without a click of a user
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        options.binary_location = shutil.which("chromium")
        self.driver = webdriver.Chrome(options=options, service=Service(shutil.which("chromedriver")))

    def open(self, address):
        self.driver.get(address)

    def script(self, text, *arguments):
        return take(self.driver.execute_async_script(AWAITED % text, *arguments))

    def press(self, *keys):
        from selenium.webdriver import ActionChains
        ActionChains(self.driver).send_keys(*keys).perform()

    def show_as(self, width, dark):
        scheme = [{"name": "prefers-color-scheme", "value": "dark" if dark else "light"}]
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia", {"media": "", "features": scheme})
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": 900, "deviceScaleFactor": 1, "mobile": False})

    def complaints(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        """Addresses of all that was asked of the network since the last call."""
        events = (json.loads(entry["message"])["message"] for entry in self.driver.get_log("performance"))
        return [event["params"]["request"]["url"] for event in events if event["method"] == "Network.requestWillBeSent"]

    def close(self):
        self.driver.quit()


class Firefox:
    """Marionette: WebDriver's commands as lists of JSON over a socket, each after its length."""

    NAME = "firefox"

    @staticmethod
    def find():
        return shutil.which("firefox-esr") or shutil.which("firefox")

    @classmethod
    def is_there(cls):
        return bool(cls.find())

    def __init__(self, downloads):
        self.profile = tempfile.TemporaryDirectory(ignore_cleanup_errors=True)
        with socket.socket() as free:
            free.bind(("127.0.0.1", 0))
            port = free.getsockname()[1]
        preferences = {"marionette.port": port, "browser.download.folderList": 2, "browser.download.dir": downloads,
                       "browser.shell.checkDefaultBrowser": False, "datareporting.policy.dataSubmissionEnabled": False}
        with open(os.path.join(self.profile.name, "user.js"), "w", encoding="utf-8") as file:
            for name, value in preferences.items():
                file.write(f"user_pref({json.dumps(name)}, {json.dumps(value)});\n")
        self.process = subprocess.Popen(
            [self.find(), "--headless", "--marionette", "--no-remote", "--profile", self.profile.name],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, env={**os.environ, "HOME": self.profile.name})
        self.number = 0
        self.connect(port)
        self.send("WebDriver:NewSession", {})
        self.send("WebDriver:SetTimeouts", {"script": 60000})

    def connect(self, port):
        end = time.monotonic() + 60
        while True:
            try:
                self.stream = socket.create_connection(("127.0.0.1", port), timeout=60).makefile("rwb")
                self.receive()  # the greeting
                return
            except (OSError, ValueError):
                if time.monotonic() > end or self.process.poll() is not None:
                    raise
                time.sleep(0.2)

    def receive(self):
        length = b""
        while (digit := self.stream.read(1)) != b":":
            if not digit:
                raise OSError("the browser has closed the connection")
            length += digit
        return json.loads(self.stream.read(int(length)))

    def send(self, command, parameters):
        self.number += 1
        data = json.dumps([0, self.number, command, parameters]).encode()
        self.stream.write(b"%d:%s" % (len(data), data))
        self.stream.flush()
        _, _, error, result = self.receive()
        if error:
            raise AssertionError(f"{command}: {error['message']}")
        return result

    def open(self, address):
        self.send("WebDriver:Navigate", {"url": address})

    def script(self, text, *arguments):
        return take(self.send("WebDriver:ExecuteAsyncScript", {"script": AWAITED % text, "args": list(arguments)})["value"])

    def press(self, *keys):
        actions = [{"type": kind, "value": key} for text in keys for key in text for kind in ("keyDown", "keyUp")]
        self.send("WebDriver:PerformActions", {"actions": [{"type": "key", "id": "keys", "actions": actions}]})

    def close(self):
        self.process.terminate()
        self.process.wait(30)
        self.profile.cleanup()
