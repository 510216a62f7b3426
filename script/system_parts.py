"""What the code has, for script/system_table: operations, windows, commands, events and members.

Each is read from where the code itself takes it: declarations in headers, the forms that are made,
the tables of commands, the handlers that are given to a form, and the tables of members and events.
What is written in a way that this file cannot read is an error, so that nothing slips through.
"""
import re

from system_tests import Definitions, closing, without_comments, word

# Whose headers declare operations: on the road from sound to word every procedure is one, above it
# those that act on a session or a control.
ROAD = ["audio", "analysis", "recognition"]
ABOVE = ["core", "presentation", "editors"]
# Headers of what others are made of; so is whatever acts on parts of a session only.
STEPS = [f"src/analysis/{name}.hpp" for name in ("sample_head", "slice_steps", "word_slicing")]
PARTS_OF_A_TABLE = re.compile(r"^namespace quillspeech::", re.MULTILINE)
PAGE_FORM = "PageForm"  # the class of all property pages
FACE = "Quillspeech"
# How a test clicks a window's ground, or presses a key that goes to no control.
WINDOW_ITSELF = ["Itself", "Click_Form", "Press_Key(key)", "Press_Key('x')"]


class Unread(Exception):
    """Code in a form that this file does not know."""


class Part:
    """`source` is proposed, `in_source` a pattern for what it has, and a test has one of `said`. A
    step may be shown by a test of the `callers`, parts too."""

    def __init__(self, source, in_source, said, is_step=False):
        self.source, self.in_source, self.said, self.is_step = source, in_source, said, is_step
        self.callers = []


class Code:
    def __init__(self, folder):
        self.files = {}
        for path in sorted(folder.rglob("*.?pp")):
            name = path.relative_to(folder.parent).as_posix()
            self.files[name] = without_comments(path.read_text(encoding="utf-8"))
        self.parts = {}

    def add(self, kind, key, source, in_source=None, said=(), is_step=False):
        part = Part(source, in_source or word(key[-1]), said or [key[-1]], is_step)
        self.parts.setdefault((kind, key), part)

    def of(self, folders, suffix):
        return {path: text for path, text in self.files.items()
                if path.split("/")[1] in folders and path.endswith(suffix)}

    def one(self, path, pattern):
        found = re.search(pattern, self.files.get(path, ""), re.DOTALL)
        if not found:
            raise Unread(f"{path}: nothing like {pattern}")
        return found[1]

    # Operations

    def home_of(self, procedure, header):
        """The file that defines the procedure, or the header when it does so itself."""
        definition = re.compile(rf"^\w[\w:<>,&* ]*[ &*]{procedure}\([^;{{}}]*\)[^;{{}}()]*\{{",
                                re.MULTILINE)
        stem = header.removesuffix("hpp") + "cpp"
        beside = self.of([header.split("/")[1]], ".cpp")
        for path in [stem, *beside]:
            if definition.search(self.files.get(path, "")):
                return path
        return header

    def filler_of(self, field):
        """The file that fills in a call that goes up, for there is no procedure of its name."""
        filled = re.compile(rf"\boperations\.{field} = ")
        for folders in (ROAD + ABOVE, ["cli", "activex"]):
            for path, text in self.of(folders, ".cpp").items():
                if filled.search(text):
                    return path
        return "src/session/operations.hpp"

    def read_procedures(self):
        declared = re.compile(r"^(?!template|using|inline|constexpr|class|struct|#)\w[\w:<>,&* ]*?"
                              r"[ &*]([A-Z]\w*)\(([^;{}]*)\)[^;{}()]*;", re.MULTILINE)
        for header, text in self.of(ROAD + ABOVE, ".hpp").items():
            if PARTS_OF_A_TABLE.search(text):
                continue
            for found in declared.finditer(text):
                acts = re.match(r"(Session|Control)& ", found[2])
                if header.split("/")[1] in ROAD or acts and not found[1].startswith("Connect_"):
                    timer = re.findall(r"^(Timer\d)_Timer$", found[1])  # a test may switch it on
                    said = [found[1], *(f"FormTimer::{one}" for one in timer)]
                    self.add("Operations", (found[1],), self.home_of(found[1], header), said=said,
                             is_step=not acts or header in STEPS)

    def read_control(self):
        """The control's life in its container, and its event pump."""
        header = "src/core/control.hpp"
        for name in re.findall(r"\n  void (UserControl_\w+|Timer1_Timer)\(", self.files[header]):
            key = f"Control::{name}"
            made = ["Control::Make"] if name == "UserControl_Initialize" else []
            self.add("Operations", (key,), self.home_of(key, header), said=[name, *made])

    def read_session(self):
        """What every floor may do with the whole session."""
        header = "src/session/session.hpp"
        for name in re.findall(r"\n[\w:]+ (\w+)\(Session& session\);", self.files[header]):
            self.add("Operations", (name,), self.home_of(name, header))

    def read_fields(self):
        """The calls that go up a floor."""
        fields = self.one("src/session/operations.hpp", r"struct Operations \{(.*?)\n\};")
        for field in re.findall(r"\n  (?:Procedure|std::function<.*>) (\w+) =", fields):
            self.add("Operations", (field,), self.filler_of(field))

    def read_callers(self):
        """Each operation's callers among the operations: at once, or by functions of a file."""
        operations = {key[0].split("::")[-1]: part for (_, key), part in self.parts.items()}
        for text in self.of(ROAD + ABOVE, ".cpp").values():
            calls = {name: set(re.findall(r"\b[A-Z]\w*(?=[(,;)])", "\n".join(bodies))) - {name}
                     for name, bodies in Definitions(text).found.items()}
            for caller in sorted(operations.keys() & calls.keys()):
                waiting, seen = [caller], set()
                while waiting:
                    for called in calls.get(waiting.pop(), set()) - seen:
                        seen.add(called)
                        if called in operations:
                            operations[called].callers.append(operations[caller])
                        else:
                            waiting.append(called)

    # Windows

    def read_windows(self):
        made = re.compile(r"(?:make_unique<Form>|\bForm \w+|\b\w+_)\(\s*\"(\w+)\",\s*"
                          r"(?:\"[^\"]*\"|[\w.]+),\s*(?:\w+_Size\b|FormSize\b)")
        for path, text in self.files.items():
            forms = list(made.finditer(text))
            header = self.files.get(path.removesuffix("cpp") + "hpp", "")
            of_classes = len(re.findall(r"^  Form \w+;", header, re.MULTILINE))
            by_pointers = text.count("make_unique<Form>(")
            if path.endswith(".cpp") and len(forms) < of_classes + by_pointers:
                if "Form(page.name" not in text and "form_(std::string(page.name)" not in text:
                    raise Unread(f"{path}: the forms that it makes")
            for found in forms:
                makers = re.findall(r"^\S.* (Make_\w+)\(", text[:found.start()], re.MULTILINE)
                self.add("Windows", (found[1],), path, said=[found[1], *makers[-1:]])
        self.read_pages()

    def read_pages(self):
        pages = "src/core/property_pages.cpp"
        for page in re.findall(r"^    \{\"(\w+)\", \"[^\"]*\", (?:\w+|\{\})[,}]",
                               self.one(pages, r"\bPages\{\{(.*?)\}\};"), re.MULTILINE):
            self.add("Windows", (page,), pages)

    # Commands

    def read_tables(self):
        """Rows of the tables that an editor connects: {"Command1", Command1_Click}."""
        windows = {"EditorCommand": "Database", "DatabaseVECommand": "DatabaseVE"}
        table = re.compile(r"(?:to_array<(\w+Command)>\(|constexpr (\w+Command) \w+\[\] = )\{")
        for path, text in self.of(["editors"], ".cpp").items():
            for found in table.finditer(text):
                window = windows.get(found[1] or found[2])
                if not window:
                    raise Unread(f"{path}: a table of {found[1] or found[2]}")
                rows = text[found.end():closing(text, found.end() - 1)]
                for command in re.findall(r'\{"(\w+)",', rows):
                    self.add("Commands", (window, command), path)

    def window_of(self, path, receiver):
        """The window behind `database_->` or `editor.DataDisplay().` in that file."""
        text = self.files[path]
        called = re.search(r"\.(\w+)\(\)$", receiver)
        if called:
            return called[1]
        name = re.escape(receiver)
        for pattern in (rf'\b{name}\("(\w+)"', rf"\b{name} = Make_(\w+)_Form\(\)",
                        rf'\b{name} = std::make_unique<Form>\(\s*"(\w+)"',
                        rf"\bForm& {name} = \w+\.(\w+)\(\)"):
            found = re.search(pattern, text)
            if found:
                return found[1]
        if re.search(rf"\b{name}\(std::string\(page\.name\)", text):
            return PAGE_FORM
        raise Unread(f"{path}: which window {receiver} is")

    def listed(self, path, name, before):
        """The names that `name` takes in a loop before that place, or that it stands for, each with
        what the file has of it."""
        text = self.files[path]
        constant = re.search(rf"\bstd::string_view {name} = \"(\w+)\"", text)
        if constant:
            return [(constant[1], None)]
        loops = re.findall(rf"for \(const [\w:*& ]+ {name} : (\{{[^}}]*\}}|\w+)\)", text[:before])
        if not loops:
            raise Unread(f"{path}: which controls {name} stands for")
        range_ = loops[-1]
        if range_.startswith("{"):
            return [(one, None) for one in re.findall(r'"(\w+)"', range_)]
        for other in self.files.values():
            array = re.search(rf"\b{range_}\[\] = \{{([^}}]*)\}}", other)
            if array:
                return [(one, word(range_)) for one in re.findall(r'"(\w+)"', array[1])]
        # A parameter of the function around: what its callers give.
        function = re.findall(rf"^\w+ (\w+)\([^)]*\bNames {range_}\b", text[:before], re.MULTILINE)
        calls = re.findall(rf"  {function[-1]}\(\w+, (\{{[^}}]*\}})", text) if function else []
        if not calls:
            raise Unread(f"{path}: which controls {range_} holds")
        return [(one, None) for one in re.findall(r'"(\w+)"', "".join(calls))]

    def controls_of(self, path, told, before):
        """What a handler is given for, as it is told there: names, each with what the file has of
        it. A button that is made with its caption goes by that."""
        if told.startswith('"'):
            caption = re.search(rf'\bButton\({told}, "(\w+)"', self.files[path])
            return [(caption[1] if caption else told.strip('"'), None)]
        if told == "Form::Itself":
            return [("Itself", None)]
        if told == "Menu_Of(group, entry)":
            groups = self.one("src/editors/engine_groups.hpp", r"\bEngine_Groups =(.*?)\}\);")
            return [(f"mnu{group}(*)", re.escape("Menu_Of(group, entry)"))
                    for group in re.findall(r'\{"(\w+)",', groups)]
        if told == "Box_Named(box.name)":
            return [("txt*", r'"txt"')]
        if told == "child.name":
            return []  # the rows of Control::Click_On
        return self.listed(path, told, before)

    def read_handlers(self):
        """The calls On and On_Key_Press of forms, but those for the window's own life."""
        given = re.compile(r"([\w.()]+?)(?:\.|->)On(?:_Key_Press)?"
                           r"\(\s*(\"\w+\"|[\w.:]+(?:\([^)]*\))?),\s*(?:FormEvent::(\w+))?")
        for path, text in self.files.items():
            if path.startswith("src/platform/form"):
                continue
            handlers = list(given.finditer(text))
            if len(handlers) < len(re.findall(r"(?:\.|->)On(?:_Key_Press)?\(", text)):
                raise Unread(f"{path}: a handler that is given to a form")
            for found in handlers:
                receiver, told, event = found.groups()
                if event in ("Load", "Unload") or told == "command.control":
                    continue
                for control, in_source in self.controls_of(path, told, found.start()):
                    said = WINDOW_ITSELF if control == "Itself" else ()
                    key = (self.window_of(path, receiver), control)
                    self.add("Commands", key, path, in_source, said)

    def read_face(self):
        path = "src/core/control.cpp"
        handlers = self.one(path, r"\bHandlers =(.*?)\}\);")
        for control in re.findall(r'\{"(\w+)",', handlers):
            self.add("Commands", (FACE, control), path, said=[control, f"{control}_Click"])

    def read_commands(self):
        """All, by window and name, with the numbers in names as numbers."""
        others, self.parts = self.parts, {}
        self.read_face()
        self.read_tables()
        self.read_handlers()
        windows = [key[0] for kind, key in others if kind == "Windows"]

        def place(part):
            window, control = part[0][1]
            number = re.search(r"\d+", control)
            return (windows.index(window) if window in windows else len(windows),
                    re.sub(r"\d.*", "", control), int(number[0]) if number else 0, control)

        self.parts = others | dict(sorted(self.parts.items(), key=place))

    # Events and members

    def read_events(self):
        named = re.findall(r"\{EventId::(\w+),\s+\"\1\"", self.files["src/core/control_events.cpp"])
        ids = re.findall(r"[A-Z]\w*", self.one("src/core/control_events.hpp",
                                              r"\benum class EventId \{(.*?)\};"))
        if sorted(named) != sorted(ids):
            raise Unread("src/core/control_events.cpp: ids and rows differ")
        for event in ids:
            raised = [path for path, text in self.of(["core"], "pp").items()
                      if f"Raise(EventId::{event}" in text]
            self.add("Events", (event,), (raised or ["src/core/control_events.cpp"])[0])

    def read_members(self):
        path = "src/core/member_table.cpp"
        rows = self.one(path, r"\bWith_Shared_Columns\((.*?)\n\}\)\);")
        access = {"Get": "get", "Own_Get": "get", "Let": "let", "Tested_Let": "let",
                  "Dropped": "let", "Call": "call"}
        row = re.compile(r"^    (\w+)\b[^\"]*\"(\w+)\",\s*(-?\w+)", re.MULTILINE)
        members = [(int(number, 0) & 0xFFFFFFFF, name, access[made])
                   for made, name, number in row.findall(rows)]
        count = self.one("src/core/member_table.hpp", r"\bMember_Count = (\d+);")
        if len(members) != int(count):
            raise Unread(f"{path}: {len(members)} of {count} rows")
        for _, *key in sorted(members):
            self.add("Members", tuple(key), path, word(key[0]), [f'"{key[0]}"'])


def read(folder):
    """The parts by kind and key, in the order of the tables."""
    code = Code(folder)
    code.read_procedures()
    code.read_control()
    code.read_session()
    code.read_fields()
    code.read_callers()
    code.parts = dict(sorted(code.parts.items()))
    code.read_windows()
    code.read_commands()
    code.read_events()
    code.read_members()
    return code.parts
