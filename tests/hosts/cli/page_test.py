"""The page of korvex repository show in a headless browser: links, search, texts, requests and console."""

import functools
import html.parser
import http.server
import json
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import urllib.parse

SKIPPED = 77
NAUGHTY = '<b>&"\'</b></script><script>console.log("run")</script>'
HARD = {
    "definitions": [{"storage": "Shop & <i>Co", "root": "Shop"}, {"storage": "Depot", "root": "Depot"}],
    "objects": [
        {"name": "Shop", "values": [
            {"name": "Title <b>", "type": "string", "default": NAUGHTY.replace("'", ""), "description": NAUGHTY},
            {"name": "Wrong", "type": "integer", "default": "abc"},
            {"name": "First", "child": "Customer"},
            {"name": "All", "child": {"name": "ThisIsANameOfThirtyCharacters0", "element": "Customer"}}]},
        {"name": "Customer", "values": [{"name": "Größe", "type": "string", "caption": "x" * 200}]},
        {"name": "Depot", "values": [{"name": "Who", "child": "Customer"}]},
        {"name": "Customer", "id": "lost {|}", "values": [{"name": "Since", "type": "date"}]},
    ],
}
MANY = {
    "definitions": [{"storage": "Many", "root": "Root"}],
    "objects": [{"name": "Root", "values": [
        {"name": f"Thing{i}", "child": {"name": f"Thing{i}", "values": [{"name": "Size", "type": "long"}]}}
        for i in range(300)]}],
}
# Types into the field and tells the address and what is shown then.
TYPING = """<script>
query.focus(); query.value = "thing29"; query.dispatchEvent(new Event("input"));
document.body.append(Object.assign(document.createElement("pre"), {id: "typed", textContent:
    location.hash + " " + found.textContent + " " + [...document.querySelectorAll("article:not([hidden])")].length}));
</script>"""


class Page(html.parser.HTMLParser):
    """What a browser has made of the page."""

    def __init__(self, text):
        super().__init__()
        self.ids, self.links, self.outside, self.shown, self.listed, self.texts = [], [], [], [], [], {}
        self._inside = []
        self.feed(text)

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        self._inside.append(values.get("id"))
        if "id" in values:
            self.ids.append(values["id"])
        for name in ("href", "xlink:href", "src", "action", "data", "srcset", "poster"):
            if name in values:
                (self.links if values[name].startswith("#") else self.outside).append(values[name])
        if tag == "article" and "hidden" not in values:
            self.shown.append(values["id"])
        if tag == "li" and "class" in values and values["class"][:1] == "d" and "hidden" not in values:
            self.listed.append(values["class"])

    def handle_data(self, data):
        for identifier in self._inside[-1:]:
            if identifier:
                self.texts[identifier] = self.texts.get(identifier, "") + data


class Server(http.server.SimpleHTTPRequestHandler):
    requests = []

    def log_message(self, *_):
        Server.requests.append(self.path)


class Browser:
    def __init__(self, program, folder):
        self.program, self.folder = program, folder
        handler = functools.partial(Server, directory=folder)
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), handler)
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def open(self, name, fragment=""):
        """The page as it stands after its scripts, and what the console said."""
        address = f"http://127.0.0.1:{self.server.server_port}/{name}{fragment}"
        ran = subprocess.run(
            [self.program, "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             "--disable-background-networking", f"--user-data-dir={self.folder}/profile", "--enable-logging=stderr",
             "--v=0", "--virtual-time-budget=5000", "--dump-dom", address],
            capture_output=True, encoding="utf-8", errors="replace", timeout=240)
        return Page(ran.stdout), [line for line in ran.stderr.splitlines() if "CONSOLE" in line]


def main(korvex, example):
    chromium = next(filter(None, map(shutil.which, ("chromium", "chromium-browser", "google-chrome"))), None)
    if not chromium or not shutil.which("dot"):
        print("skipped: this needs a browser and dot (Debian: chromium, graphviz)")
        return SKIPPED
    complaints = []

    def expect(what, is_so):
        if not is_so:
            complaints.append(what)

    with tempfile.TemporaryDirectory() as folder:
        browser = Browser(chromium, folder)

        def write(name, model):
            path = pathlib.Path(folder, name)
            done = subprocess.run([korvex, "repository", "show", model, "--format", "html", "--out", path],
                                  capture_output=True, text=True)
            expect(f"{name}: {done.stderr}", done.returncode == 0 and done.stderr == "")
            return path

        def search(name, query):
            page, console = browser.open(name, "#q=" + urllib.parse.quote(query))
            expect(f"{name}: {query}: {console}", not console)
            expect(f"{name}: {query}: the list has {len(page.listed)}", len(page.listed) == len(page.shown))
            return [identifier.removeprefix("object-") for identifier in page.shown], page.texts.get("found", "").strip()

        for name, model in (("hard.json", HARD), ("many.json", MANY)):
            pathlib.Path(folder, name).write_text(json.dumps(model), encoding="utf-8")
        hard, many = (str(pathlib.Path(folder, name)) for name in ("hard.json", "many.json"))
        for name, model, objects in (("orders.html", example, 17), ("hard.html", hard, 5), ("many.html", many, 301)):
            write(name, model)
            Server.requests.clear()
            page, console = browser.open(name)
            expect(f"{name}: requests {Server.requests}", Server.requests == ["/" + name])
            expect(f"{name}: console {console}", not console)
            expect(f"{name}: leads out of itself: {page.outside}", set(page.outside) == {"data:,"})
            expect(f"{name}: leads nowhere: {set(page.links) - {'#' + i for i in page.ids}}",
                   {link[1:] for link in page.links} <= set(page.ids))
            expect(f"{name}: identifiers twice", len(page.ids) == len(set(page.ids)))
            expect(f"{name}: {len(page.shown)} objects", len(page.shown) == objects)
            expect(f"{name}: the picture does not lead to all",
                   all(page.links.count(f"#{i}") >= 3 and f"picture-{i[7:]}" in page.ids for i in page.shown))

        for name, query, shown, found in (
                ("orders.html", "CONTACT", ["Customer", "Contacts", "Contact"], "3 of 17 objects"),
                ("orders.html", "lineallocation pk", ["OrderLine", "LineAllocations", "LineAllocation"], "3 of 17 objects"),
                ("orders.html", "no such thing", [], "0 of 17 objects"),
                ("hard.html", "TITLE <b> größe", [], "0 of 5 objects"),
                ("hard.html", "größe", ["Customer"], "1 of 5 objects"),
                ("hard.html", "</script><script>", ["Shop"], "1 of 5 objects")):
            got = search(name, query)
            expect(f"{name}: {query}: {got}", got == (shown, found))

        text = pathlib.Path(folder, "many.html").read_text(encoding="utf-8")
        pathlib.Path(folder, "typed.html").write_text(text.replace("</body>", TYPING + "</body>"), encoding="utf-8")
        typed = browser.open("typed.html")[0].texts.get("typed", "").strip()
        expect(f"typed: {typed}", typed == "#q=thing29 12 of 301 objects 12")
        browser.server.shutdown()
    print("\n".join(complaints) or "the page does as it should")
    return 1 if complaints else 0


sys.exit(main(*sys.argv[1:]))
