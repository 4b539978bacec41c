# Puts the browser app together: one file with its style, its script and the library as WebAssembly.
#   Bundle.py APP_FOLDER PAGE_FOLDER EXAMPLE WASM VERSION OUT
# The policy in it lets nothing be fetched, and only these styles and scripts be used: those of the app, and those of
# the pages that it shows.

import base64
import hashlib
import sys


def read(*path):
    with open("/".join(path), encoding="utf-8") as file:
        return file.read()


def allow(*texts):
    return " ".join(f"'sha256-{base64.b64encode(hashlib.sha256(text.encode()).digest()).decode()}'" for text in texts)


def encode(path):
    with open(path, "rb") as file:
        return base64.b64encode(file.read()).decode()


def main(app, page, example, wasm, version, out):
    style, script = read(app, "App.css"), read(app, "App.js")
    page_style, page_script = read(page, "Page.css"), read(page, "Page.js")
    text = read(app, "App.html")
    for name, value in {
        "POLICY": f"default-src 'none'; base-uri 'none'; form-action 'none'; connect-src 'none'; "
                  f"style-src {allow(page_style, style)}; "
                  f"script-src 'wasm-unsafe-eval' {allow(script, page_script)}",
        "VERSION": version, "PAGE_STYLE": page_style, "STYLE": style, "SCRIPT": script, "EXAMPLE": encode(example),
        "WASM": encode(wasm),
    }.items():
        text = text.replace(f"@{name}@", value)
    with open(out, "w", encoding="utf-8") as file:
        file.write(text)


main(*sys.argv[1:])
