"""What the tests tell of, for script/system_table."""
import functools
import math
import re

# Suites about a window that they do not call by its name.
MEANT = {
    "Quillspeech": ["FaceForm", "Buttons", "ControlFace"],
    "PageForm": ["OpenPage", "AppliedPage"],
    "InputBox": ["FormDialogs"],
    "StatusBar": ["StatusWindow"],
}
# An apostrophe between digits is none of a character's.
LITERAL = r"""R"\((?:.|\n)*?\)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Fa-f])'(?:\\.|[^'\\\n])+'"""
COMMENT = re.compile(rf"({LITERAL})|//[^\n]*|/\*.*?\*/", re.DOTALL)


def without_comments(text):
    return COMMENT.sub(lambda found: found[1] or "", text)


def word(name):
    """A pattern for the name as a word; its `*` is any run of letters and digits."""
    pattern = re.escape(name).replace(r"\*", r"\w+")
    return rf"(?<!\w){pattern}(?!\w)" if name[-1].isalnum() else rf"(?<!\w){pattern}"


def closing(text, opening):
    """Where the brace ends that opens there."""
    depth = 0
    for found in re.compile(rf"{LITERAL}|[{{}}]").finditer(text, opening):
        depth += {"{": 1, "}": -1}.get(found[0], 0)
        if depth == 0:
            return found.end()
    return len(text)


def words_of(name):
    return [part.lower() for part in re.findall(r"[A-Z]+(?![a-z])|[A-Z]?[a-z]+|\d+", name)]


class Definitions:
    """The functions, constants and fields that a text without comments defines, by name."""

    FUNCTION = re.compile(r"^ *(?!else|return|if|for|while|switch|TEST|TYPED_TEST)"
                          r"[\w:<>,&*\[\] ]*[\w>&*:] ?\b(\w+)\(([^;{}]*)\)[^;{}()=]*\{",
                          re.MULTILINE)
    CONSTANT = re.compile(r"^ *(?:static |inline )*(?:const|constexpr)\b[^=;{}()]*?"
                          r"\b(\w+)(?:\[\w*\])? ?[={]", re.MULTILINE)
    CLASS = re.compile(r"^(?:struct|class) \w+[^;{}()]*\{", re.MULTILINE)
    FIELD = re.compile(r"^  (?!return|using)\w[\w:<>,&* ]*[ &*>](\w+)(?: = |\{)[^;]*;",
                       re.MULTILINE)

    def __init__(self, text):
        self.text, self.found = text, {}
        for found in self.CLASS.finditer(text):
            for field in self.FIELD.finditer(text, found.end(), closing(text, found.end() - 1)):
                self.define(field[1], *field.span())
        for found in self.FUNCTION.finditer(text):
            self.define(found[1], found.start(), closing(text, found.end() - 1))
        for found in self.CONSTANT.finditer(text):
            end = text.find("{", found.end() - 1, text.find(";", found.end()))
            end = closing(text, end) if end >= 0 else text.find(";", found.end())
            self.define(found[1], found.start(), end)

    def define(self, name, start, end):
        self.found.setdefault(name, []).append(self.text[start:end])


class Text:
    """A text to look for names in."""

    def __init__(self, text):
        self.text, self.words = text, frozenset(re.findall(r"\w+", text))

    def says(self, name):
        if "*" not in name and not self.words.issuperset(re.findall(r"\w+", name)):
            return False
        return name in self.words or re.search(word(name), self.text) is not None


class TestFile:
    def __init__(self, path, text):
        self.path, self.text = path, without_comments(text)
        self.included = re.findall(r'#include "(tests/[^"]+)"', text)
        self.own = Definitions(self.text).found


class Test:
    def __init__(self, file, suite, name, body, helpers):
        self.path, self.suite, self.name = file.path, suite, name
        self.reference = f"{file.path}: {suite}.{name}"
        self.body, self.helpers = Text(body), helpers

    @functools.cached_property
    def whole(self):
        """The body with everything of its file that it uses."""
        used, texts, waiting = set(), [], [self.body.text]
        while waiting:
            texts.append(waiting.pop())
            for name in set(re.findall(r"\w+", texts[-1])) - used:
                used.add(name)
                waiting += self.helpers.get(name, [])
        return Text("\n".join(texts))

    def has(self, said):
        return any(self.whole.says(name) for name in said)

    def is_about(self, window):
        if self.suite in (window, *MEANT.get(window, [])):
            return True
        return window not in MEANT and self.whole.says(window)

    def worth(self, said, source, access):
        """How well the test speaks of the first of these names."""
        name = said[0]
        folder, stem = source.removeprefix("src/").rsplit("/", 1)
        file = self.path.removeprefix("tests/").rsplit("/", 1)
        worth = 4 * (file[0] == folder) + 4 * file[-1].startswith(stem.split(".")[0])
        worth += 8 * self.body.says(name) + 4 * self.whole.says(name)
        worth += 3 * (len(re.findall(word(name), self.body.text)) > 1)
        wanted, spoken = words_of(name), set(words_of(self.name))
        worth += 8 * sum(one in spoken for one in wanted) / len(wanted)
        if access:  # the tables of all gets and of all lets say it exactly
            worth += 8 * bool(re.search(rf"member_{access}s", self.path))
        return worth - math.log2(4 + self.body.text.count('"'))


class Script(Text):
    """A test that is a script or a program of its own."""

    def has(self, said):
        return any(self.says(name) for name in said)

    def is_about(self, window):
        return self.says(window)


class Tests:
    BEGIN = re.compile(r"^(?:TYPED_)?TEST(?:_F|_P)?\(\s*(\w+),\s*(\w+)\) \{", re.MULTILINE)
    INSTANCE = re.compile(r"^INSTANTIATE_TEST_SUITE_P\(\s*\w+,\s*(\w+),.*?\);$",
                          re.MULTILINE | re.DOTALL)

    def __init__(self, root):
        self.root = root
        self.files = {}
        for path in sorted((root / "tests").rglob("*.?pp")):
            name = path.relative_to(root).as_posix()
            self.files[name] = TestFile(name, path.read_text(encoding="utf-8"))
        self.tests = {}
        for file in self.files.values():
            self.read(file)

    def helpers_of(self, file):
        helpers, waiting, seen = {}, [file.path], set()
        while waiting:
            path = waiting.pop()
            if path in seen or path not in self.files:
                continue
            seen.add(path)
            waiting += self.files[path].included
            for name, texts in self.files[path].own.items():
                helpers.setdefault(name, []).extend(texts)
        return helpers

    def read(self, file):
        begins = list(self.BEGIN.finditer(file.text))
        helpers = self.helpers_of(file) if begins else {}
        instances = {found[1]: found[0] for found in self.INSTANCE.finditer(file.text)}
        for found in begins:
            body = file.text[found.end():closing(file.text, found.end() - 1)]
            test = Test(file, found[1], found[2], body + instances.get(found[1], ""), helpers)
            self.tests[test.reference] = test

    def find(self, reference):
        if ": " in reference:
            return self.tests.get(reference)
        path = self.root / reference
        if not reference.startswith("tests/") or not path.is_file():
            return None
        return Script(path.read_text(encoding="utf-8"))

    def names_of(self, part):
        """What a test of the part has one of."""
        if not part.callers or not part.is_step and self.say(part.said):
            return part.said
        return [*part.said, *(name for caller in part.callers for name in self.names_of(caller))]

    def say(self, names):
        return any(test.has(names) for test in self.tests.values())

    def best(self, part, about=None, access=None):
        """The test that speaks best of the part, or none."""
        names = self.names_of(part)
        fitting = [test for test in self.tests.values()
                   if test.has(names) and (not about or test.is_about(about))]
        if not fitting:
            return ""
        return max(fitting, key=lambda test: test.worth(part.said, part.source, access)).reference
