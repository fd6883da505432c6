"""What korvex gives shells, terminals and programs, tried in real terminals. Arguments: the command, the examples."""
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time
import unittest

KORVEX, EXAMPLES = (os.path.abspath(argument) for argument in sys.argv[1:3])


def korvex(*words, cwd, **variables):
    return subprocess.run([KORVEX, *words], cwd=cwd, capture_output=True, text=True, env={**os.environ, **variables})


class Terminal:
    """A shell in a terminal of its own."""

    def __init__(self, folder, words):
        self.tmux = ["tmux", "-S", os.path.join(folder, "socket"), "-f", "/dev/null"]
        path = os.path.dirname(KORVEX) + ":" + os.environ["PATH"]
        subprocess.run([*self.tmux, "new-session", "-d", "-x", "200", "-y", "40", "-c", folder, *words], check=True,
                       env={**os.environ, "PATH": path, "PS1": "$ ", "TERM": "xterm", "LC_ALL": "C.UTF-8"})

    def close(self):
        subprocess.run([*self.tmux, "kill-server"], check=False)

    def screen(self, *options):
        captured = subprocess.run([*self.tmux, "capture-pane", "-p", *options], capture_output=True, text=True, check=True)
        return captured.stdout.rstrip()

    def keys(self, *keys):
        subprocess.run([*self.tmux, "send-keys", *keys], check=True)

    def after(self, text, expected, *keys):
        """The screen once it is as expected, or after some patience, with `text` typed on an empty one."""
        self.keys("C-u", "C-l")
        self.keys("-l", text)
        self.keys(*keys)
        end = time.monotonic() + 8
        while (screen := self.screen()) != expected and time.monotonic() < end:
            time.sleep(0.05)
        return screen


# What is typed before Tab, and the line then; / stands for the end of what a shell leaves without a blank.
COMPLETED = [
    ("korvex rep", "korvex repository "),
    ("korvex repository ch", "korvex repository check "),
    ("korvex script --dia", "korvex script --dialect "),
    ("korvex script --dialect ora", "korvex script --dialect oracle "),
    ("korvex script --dialect=ora", "korvex script --dialect=oracle "),
    ("korvex repository show --format mer", "korvex repository show --format mermaid "),
    ("korvex script My", "korvex script My\\ orders.db "),
    ('korvex script "My', 'korvex script "My orders.db" '),
    ("korvex script --repository My", "korvex script --repository My\\ orders.db "),
    ("korvex repository import x.db My", "korvex repository import x.db My\\ orders.db "),
    ("korvex script My\\ orders.db --out a\\ f", "korvex script My\\ orders.db --out a\\ folder/"),
    ("korvex script My\\ orders.db --storage Or", "korvex script My\\ orders.db --storage Orders "),
    ("korvex script 'My orders.db' --storage Two", "korvex script 'My orders.db' --storage Two\\ words "),
    ("korvex list --repository model.json --storage Or", "korvex list --repository model.json --storage Orders "),
    ("korvex load --storage Or", "korvex load --storage Orders "),
    ("korvex relate none.db --storage Or", "korvex relate none.db --storage Or"),
    ("korvex load --all --k", "korvex load --all --k"),
    ("korvex completion z", "korvex completion zsh "),
]


@unittest.skipUnless(shutil.which("tmux"), "tmux is not installed")
class Completion(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="korvex-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        shutil.copy(os.path.join(EXAMPLES, "orders.json"), os.path.join(self.folder, "model.json"))
        os.mkdir(os.path.join(self.folder, "a folder"))
        # Folders of these names do not change what is a command or a storage name.
        os.mkdir(os.path.join(self.folder, "repository"))
        os.mkdir(os.path.join(self.folder, "Orders"))
        self.run_korvex("repository", "new", "My orders.db")
        self.run_korvex("repository", "import", "My orders.db", "model.json")
        with open(os.path.join(self.folder, "two.json"), "w", encoding="utf-8") as file:
            file.write('{"definitions":[{"storage":"Two words","root":"T"}],"objects":[{"name":"T","values":[]}]}')
        self.run_korvex("repository", "import", "My orders.db", "two.json")

    def run_korvex(self, *words):
        result = korvex(*words, cwd=self.folder)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return result.stdout

    def write(self, name, text):
        with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
            file.write(text)

    def complete(self, words, setup, skipped=()):
        terminal = Terminal(self.folder, words)
        self.addCleanup(terminal.close)
        terminal.after("; ".join(setup) + "; clear", "$", "Enter")
        repository = os.path.join(self.folder, "My orders.db")
        with open(repository, "rb") as file:
            before = file.read()
        for typed, line in COMPLETED:
            if typed in skipped:
                continue
            with self.subTest(typed):
                # A character behind it shows whether a blank is there.
                expected = "$ " + line + "x"
                self.assertEqual(terminal.after(typed, expected, "Tab", "x"), expected)
        with open(repository, "rb") as file:
            self.assertEqual(file.read(), before, "the repository is only read")
        return terminal

    def test_bash(self):
        self.write("completion", self.run_korvex("completion", "bash"))
        self.complete(["bash", "--norc", "--noprofile"],
                      ["PS1='$ '; source completion", "export KORVEX_REPOSITORY='My orders.db'"],
                      ["korvex load --all --k"])

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_zsh(self):
        self.write("_korvex", self.run_korvex("completion", "zsh"))
        subprocess.run(["zsh", "-n", "_korvex"], cwd=self.folder, check=True)
        self.complete(["zsh", "-f"],
                      ["PS1='$ '; fpath=($PWD $fpath); autoload -U compinit; compinit -u -D",
                       "setopt no_auto_remove_slash; LISTMAX=0; unsetopt beep auto_menu; bindkey -e",
                       "export KORVEX_REPOSITORY='My orders.db'"],
                      ["korvex script --dia"])  # becomes --dialect=

    def test_storage_names(self):
        names = korvex("completion", "storages", "My orders.db", cwd=self.folder)
        self.assertEqual((names.stdout, names.stderr), ("Orders\nTwo words\n", ""))
        before = sorted(os.listdir(self.folder))
        for place in ["none.db", "a folder", "two.json/x", ""]:
            names = korvex("completion", "storages", place, cwd=self.folder)
            self.assertEqual((names.stdout, names.stderr), ("", ""), place)
        self.assertEqual(sorted(os.listdir(self.folder)), before)


def commands(path=()):
    """Every command that does something, as a list of words, with the lines of its examples."""
    parts = korvex(*path, "--help", cwd=".").stdout.partition("Subcommands:\n")
    nested = [line.split()[0] for line in parts[2].partition("\n\n")[0].splitlines()]
    if path:
        yield path, [line[2:] for line in parts[0].partition("\nExample:\n")[2].splitlines()]
    for name in nested if not path or parts[2] else []:
        yield from commands((*path, name))


class FilledFolder(unittest.TestCase):
    """A folder with a repository, a model of what was, a target database with one order, and scripts."""

    DEFINITION = ["--repository", "orders.db", "--storage", "Orders"]
    TARGET = "Provider=SQLite;Data Source=target.db"

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="korvex-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)
        for name in ["orders.json", "order.json"]:
            shutil.copy(os.path.join(EXAMPLES, name), self.folder)
        shutil.copy(os.path.join(EXAMPLES, "orders.json"), os.path.join(self.folder, "old.json"))
        for words in [["repository", "new", "orders.db"], ["repository", "import", "orders.db", "orders.json"],
                      ["script", "orders.db", "--dialect", "sqlite", "--out", "sql"],
                      ["database", "create", "orders.db", "--connection", self.TARGET],
                      ["save", *self.DEFINITION, "--connection", self.TARGET, "order.json"]]:
            self.assertEqual(korvex(*words, cwd=self.folder).returncode, 0, words)


class Examples(FilledFolder):
    def test_each_command_has_one_that_works(self):
        path = os.path.dirname(KORVEX) + ":" + os.environ["PATH"]
        tried = 0
        for command, examples in commands():
            with self.subTest(command):
                groups = {"repository", "database", "field", "completion"}
                self.assertEqual(len(examples) > 0, command != command[:1] or command[0] not in groups)
            for line in examples:
                with self.subTest(line), tempfile.TemporaryDirectory() as copy:
                    shutil.copytree(self.folder, copy, dirs_exist_ok=True)
                    result = subprocess.run(["bash", "-c", line], cwd=copy, capture_output=True, text=True,
                                            env={**os.environ, "PATH": path})
                    self.assertEqual(result.returncode, 0, result.stderr)
                    self.assertTrue(line.startswith("source ") or line.split()[1:len(command) + 1] == list(command))
                    tried += 1
        self.assertGreater(tried, 25)

    def test_variables_stand_in_for_options(self):
        shutil.copy(os.path.join(self.folder, "orders.db"), os.path.join(self.folder, "other.db"))
        variables = {"KORVEX_REPOSITORY": "orders.db", "KORVEX_STORAGE": "Orders", "KORVEX_CONNECTION": self.TARGET}
        wrong = {"KORVEX_REPOSITORY": "none.db", "KORVEX_STORAGE": "None", "KORVEX_CONNECTION": "Provider=None"}
        key = self.DEFINITION + ["--connection", self.TARGET, "--key", "1"]
        cases = [
            (["exists", "--key", "1"], variables, 0, "true\n"),
            (["exists", *key], wrong, 0, "true\n"),
            (["exists", *key[2:]], {"KORVEX_REPOSITORY": ""}, 2, "--repository is required"),
            (["database", "check"], variables, 0, "the tables are those of the definition\n"),
            (["database", "check", "none.db"], variables, 1, "none.db"),
            (["list", "--format", "keys"], variables, 0, "1\n"),
            (["relate"], variables, 0, ""),
            (["script", "--dialect", "sqlite", "--quiet"], variables, 0, ""),
            (["repository", "show", "--storage", "Other"], variables, 1, "Other"),
            (["repository", "import", "orders.json", "--replace", "--dry-run"], variables, 0, None),
            (["repository", "import", "other.db", "orders.json", "--replace", "--dry-run"], wrong, 0, None),
            (["repository", "import", "orders.json"], {"KORVEX_REPOSITORY": ""}, 2, "MODEL is required"),
            (["diff", "orders.json"], {"KORVEX_CONNECTION": self.TARGET}, 0, ""),
            (["diff", "orders.json", "old.json", "--dialect", "sqlite"], {"KORVEX_CONNECTION": "Provider=None"}, 0, ""),
            # Other commands' variables ask nothing of this one.
            (["repository", "show", "orders.json"], wrong, 1, "None"),
            (["repository", "show", "orders.json", "--storage", "Orders", "--format", "json"], variables, 0, None),
        ]
        for words, environment, code, text in cases:
            with self.subTest(words):
                result = korvex(*words, cwd=self.folder, **environment)
                self.assertEqual(result.returncode, code, result.stderr)
                if text is None:
                    continue
                if code == 0:
                    self.assertEqual((result.stdout, result.stderr), (text, ""))
                else:
                    self.assertIn(text, result.stderr)


class Machines(FilledFolder):
    def document(self, *words, code=0):
        result = korvex(*words, "--format", "json", cwd=self.folder)
        self.assertEqual(result.returncode, code, result.stderr)
        document = json.loads(result.stdout)
        said = "".join(f"korvex: {message}\n" for message in document.pop("messages"))
        self.assertEqual(result.stderr, said)
        return document

    def database(self, command, *words, code=0):
        return self.document("database", command, "orders.db", "--connection", self.TARGET, *words, code=code)

    def error(self, number, description):
        return {"error": {"number": number, "description": description}}

    def test_check(self):
        self.assertEqual(self.document("repository", "check", "orders.db"), {"errors": 0, "warnings": 0, "findings": []})
        with open(os.path.join(self.folder, "bad.json"), "w", encoding="utf-8") as file:
            file.write('{"definitions":[{"storage":"S","root":"T"}],"objects":[{"name":"T","values":'
                       '[{"name":"A B","type":"long"}]}]}')
        findings = self.document("repository", "check", "bad.json", code=1)
        self.assertEqual((findings["errors"], findings["findings"][0]["severity"]), (len(findings["findings"]), "error"))
        self.assertEqual(list(findings["findings"][0]), ["severity", "text", "endangersData"])
        self.assertEqual(self.document("repository", "check", "none.db", code=1)["error"]["number"], 3024)
        wrong = korvex("repository", "check", "--format", "json", cwd=self.folder, KORVEX_REPOSITORY="")
        self.assertEqual((wrong.returncode, wrong.stdout), (2, ""))

    def test_apply(self):
        new = ["--connection", "Provider=SQLite;Data Source=new.db", "--create", "sql/LiteCreate.sql"]
        step = self.document("apply", *new, "--dry-run")["steps"][0]
        self.assertEqual(step, {"file": "sql/LiteCreate.sql", "line": 1, "action": "run", "deed": "create",
                                "thing": "table", "name": "tOrder"})
        done = self.document("apply", *new)
        made = {name: count for name, count in done["created"].items() if count}
        self.assertEqual(made, {"tables": 17, "indexes": 16, "triggers": 32})
        self.assertEqual((sum(done["dropped"].values()), done["others"], done["skipped"]), (0, 0, 0))
        failed = self.document("apply", *new, code=1)["error"]
        self.assertEqual(failed["number"], -2147217857)
        self.assertIn("LiteCreate.sql, line 1: ", failed["description"])

    def test_database(self):
        counts = {"tables": 17, "indexes": 16, "triggers": 32, "foreignKeys": 16}
        same = {"equal": True, "madeByFirstVersion": False, "differences": []}
        self.assertEqual(self.database("check"), same)
        self.assertEqual(self.database("create"), {"engine": "sqlite", "created": dict.fromkeys(counts, 0)})
        self.assertEqual(self.database("update"), {"engine": "sqlite", "changes": [], "statements": 0})
        with open(os.path.join(self.folder, "drop.sql"), "w", encoding="utf-8") as file:
            file.write("drop trigger tParcel_I;\n")
        self.document("apply", "--connection", self.TARGET, "drop.sql")
        difference = self.database("check", code=1)["differences"][0]
        self.assertEqual({**difference, "text": ""}, {"table": "tParcel", "aspect": "trigger", "name": "tParcel_I",
                                                      "missing": True, "text": ""})
        self.assertEqual(self.database("create")["created"], {**dict.fromkeys(counts, 0), "triggers": 1})
        with open(os.path.join(self.folder, "orders.json"), encoding="utf-8") as file:
            model = file.read().replace('"Street"', '"Road"')
        with open(os.path.join(self.folder, "new.json"), "w", encoding="utf-8") as file:
            file.write(model)
        update = ["database", "update", "new.json", "--connection", self.TARGET, "--dry-run"]
        changed = self.document(*update)
        self.assertEqual((changed["engine"], changed["statements"]), ("sqlite", 0))
        self.assertEqual(list(changed["changes"][0])[:5], ["class", "change", "thing", "table", "column"])
        self.assertEqual(self.database("drop", code=1)["error"]["number"], 5)
        self.assertEqual(self.database("drop", "--yes"),
                         {"engine": "sqlite", "dropped": {**dict.fromkeys(counts, 0), "tables": 17}})
        self.assertEqual(self.database("create"), {"engine": "sqlite", "created": counts})


@unittest.skipUnless(shutil.which("tmux"), "tmux is not installed")
class OnTerminals(FilledFolder):
    def setUp(self):
        super().setUp()
        self.terminal = Terminal(self.folder, ["bash", "--norc", "--noprofile"])
        self.addCleanup(self.terminal.close)
        self.terminal.after("PS1='$ '; clear", "$", "Enter")

    def screens(self, line):
        """What the terminal shows, line by line, while a command runs, and when it has run."""
        self.terminal.keys("C-l")
        self.terminal.keys("-l", line + "; echo over")
        self.terminal.keys("Enter")
        screens = []
        end = time.monotonic() + 60
        while not screens or "over" not in screens[-1]:
            self.assertLess(time.monotonic(), end, screens)
            screens.append(self.terminal.screen("-e").splitlines())
        return screens

    def test_colours(self):
        line = "korvex: {}error 3024{}"
        for command, begin, end in [("korvex relate none.db", "\x1b[1m\x1b[31m", "\x1b[0m"),
                                    ("NO_COLOR=1 korvex relate none.db", "", ": "),
                                    ("TERM=dumb korvex relate none.db", "", ": "),
                                    ("korvex relate none.db 2>&1 | cat", "", ": ")]:
            with self.subTest(command):
                said = [shown for shown in self.screens(command)[-1] if shown.startswith("korvex: ")]
                self.assertTrue(said[0].startswith(line.format(begin, end)), said)

    def test_progress(self):
        with open(os.path.join(self.folder, "slow.sql"), "w", encoding="utf-8") as file:
            file.write("create table T (A int);\n" + "insert into T select count(*) from (with recursive c(x) as (select 1 "
                       "union all select x + 1 from c where x < 3000000) select x from c);\n" * 5)
        apply = 'korvex apply --create --connection "Provider=SQLite;Data Source={}.db" slow.sql'
        progress = re.compile(r"[1-5] of 6 statements, \d+/(s|min), \d+ s left$")
        screens = self.screens(apply.format("a"))
        self.assertTrue(any(progress.match(line) for screen in screens for line in screen), screens[-2])
        self.assertEqual(screens[-1][-4:-1], ["1 table created", "5 other statements run", "over"])
        self.assertFalse(any("statements," in line for line in screens[-1]))
        screens = self.screens(apply.format("b") + " 2>said; cat said")
        self.assertFalse(any("statements," in line for screen in screens for line in screen))


class ManPages(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="korvex-test-")
        self.addCleanup(shutil.rmtree, self.folder, ignore_errors=True)

    def test_day_is_that_of_the_build(self):
        for epoch, day in [("", ""), ("86400", "1970-01-02")]:
            self.assertEqual(korvex("man", "man1", cwd=self.folder, SOURCE_DATE_EPOCH=epoch).stderr, "")
            with open(os.path.join(self.folder, "man1", "korvex.1"), encoding="utf-8") as file:
                self.assertIn(f'.TH KORVEX 1 "{day}" ', file.read())

    @unittest.skipUnless(shutil.which("groff"), "groff is not installed")
    def test_every_command_has_a_page(self):
        pages = korvex("man", "man1", cwd=self.folder).stdout.split()
        commands = korvex(cwd=self.folder).stdout.partition("Subcommands:\n")[2].partition("\n\n")[0].splitlines()
        names = ["man1/korvex-" + line.split()[0] + ".1" for line in commands]
        self.assertEqual(pages, sorted(names) + ["man1/korvex.1"])
        for page in pages:
            shown = subprocess.run(["groff", "-man", "-ww", "-Tascii", "-P-cbou", page], cwd=self.folder, capture_output=True,
                                   text=True, check=True)
            self.assertEqual(shown.stderr, "", page)
            for part in ["NAME", "SYNOPSIS", "OPTIONS", "EXIT STATUS", "SEE ALSO"]:
                self.assertIn(part, shown.stdout, page)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1] + sys.argv[3:], verbosity=2)
