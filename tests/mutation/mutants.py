"""Lists the mutants of C++ sources: copies with one small mistake each, of the kinds that people make.

A lexer and the layout that clang-format gives are enough to tell operators from template brackets and references: only
operators stand between blanks.
"""

import re
from dataclasses import dataclass
from pathlib import Path

TOKEN = re.compile(
    r"""(?P<skip>\s+|//[^\n]*|/\*.*?\*/|(?<![^\n])[ \t]*\#(?:\\\n|[^\n])*)
      | (?P<string>(?:u8|u|U|L)?R"(?P<fence>[^(\s]*)\(.*?\)(?P=fence)"|(?:u8|u|U|L)?"(?:\\.|[^"\\])*"
          |(?:u8|u|U|L)?'(?:\\.|[^'\\])*')
      | (?P<number>\.?\d(?:[\w.']|[eEpP][+-])*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign><<=|>>=|<=>|->\*|\.\.\.|::|->|\+\+|--|&&|\|\||<<|>=|<=|==|!=|\+=|-=|\*=|/=|%=|\|=|&=|\^=|.)
    """,
    re.VERBOSE | re.DOTALL)

# What an operator between blanks becomes. Two `>` that close templates stand before a blank but not behind one.
OPERATORS = {
    "<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+": "-", "-": "+",
    "*": "/", "/": "*", "%": "*", "&": "|", "|": "&", "+=": "-=", "-=": "+=", "*=": "/=", "/=": "*=", "|=": "&=",
    "&=": "|=",
}
STEPS = {"++": "--", "--": "++"}
NOT_A_STATEMENT = {
    "return", "using", "typedef", "static_assert", "assert", "throw", "case", "default", "namespace", "friend", "goto",
    "if", "else", "for", "while", "do", "switch", "try", "catch", "const", "constexpr", "static", "auto", "public",
    "private", "protected", "template", "struct", "class", "enum", "union", "delete", "co_return", "explicit",
    "virtual", "inline",
}
ASSIGNMENTS = {"=", "+=", "-=", "*=", "/=", "%=", "|=", "&=", "^=", "<<=", ">>="}


@dataclass(frozen=True)
class Mutant:
    file: str  # from the root of the sources
    line: int
    start: int  # in the file's text; what lies from here to `end` is replaced by `new`
    end: int
    new: str
    old_line: str  # whole lines, blanks drawn together
    new_line: str


@dataclass
class Token:
    kind: str
    text: str
    start: int
    end: int


def tokens_of(text: str) -> list[Token]:
    tokens = []
    for match in TOKEN.finditer(text):
        if match.lastgroup != "skip" and not match.group("skip"):
            kind = next(name for name in ("string", "number", "word", "sign") if match.group(name) is not None)
            tokens.append(Token(kind, match.group(0), match.start(), match.end()))
    return tokens


def closing(tokens: list[Token], opened: int) -> int:
    """The index of the bracket that closes the one at `opened`."""
    depth = 0
    for i in range(opened, len(tokens)):
        if tokens[i].text in ("(", "[", "{"):
            depth += 1
        elif tokens[i].text in (")", "]", "}"):
            depth -= 1
            if depth == 0:
                return i
    return len(tokens) - 1


def kind_of_block(tokens: list[Token], brace: int) -> str:
    """What the brace opens: `names` (namespaces and types), `code` or `value`."""
    i = brace - 1
    if i >= 0 and tokens[i].text in ("else", "do", "try", ")"):
        return "code"
    words = []
    while i >= 0 and tokens[i].text not in (";", "{", "}", ")", "=", "return"):
        words.append(tokens[i].text)
        i -= 1
    if {"namespace", "class", "struct", "union", "enum"} & set(words):
        return "names"
    behind_parameters = {"const", "noexcept", "override", "->", "mutable"}
    if i >= 0 and tokens[i].text == ")" and (not words or behind_parameters & set(words)):
        return "code"
    return "code" if i >= 0 and tokens[i].text in (";", "{", "}") and not words else "value"


def scopes_of(tokens: list[Token]) -> list[str]:
    """For each token the kind of the innermost block or bracket that it stands in."""
    scopes, open_ones = [], ["names"]
    for i, token in enumerate(tokens):
        if token.text in (")", "]", "}") and len(open_ones) > 1:
            open_ones.pop()
        scopes.append(open_ones[-1])
        if token.text == "{":
            open_ones.append(kind_of_block(tokens, i))
        elif token.text in ("(", "["):
            open_ones.append("brackets")
    return scopes


def is_attribute(tokens: list[Token], i: int) -> bool:
    return i + 1 < len(tokens) and tokens[i + 1].text == "[" and tokens[i + 1].start == tokens[i].end


def untouchable(tokens: list[Token]) -> set[int]:
    """The tokens of assertions and attributes, which say something to the compiler or to developers alone."""
    found = set()
    for i, token in enumerate(tokens):
        if token.text in ("static_assert", "assert", "alignas") and i + 1 < len(tokens) and tokens[i + 1].text == "(":
            found.update(range(i, closing(tokens, i + 1) + 1))
        elif token.text == "[" and is_attribute(tokens, i):
            found.update(range(i, closing(tokens, i) + 1))
    return found


class File:
    def __init__(self, root: Path, name: str):
        self.name = name
        self.text = (root / name).read_text(encoding="utf-8")
        self.tokens = tokens_of(self.text)
        self.scopes = scopes_of(self.tokens)
        self.left_alone = untouchable(self.tokens)

    def mutants(self) -> list[Mutant]:
        found = []
        for i in range(len(self.tokens)):
            if i not in self.left_alone:
                for start, end, new in self.changes_at(i):
                    found.append(self.mutant(start, end, new))
        return found

    def changes_at(self, i: int):
        token = self.tokens[i]
        if token.kind == "sign":
            yield from self.changed_sign(i)
        elif token.kind == "number":
            yield from self.changed_number(i)
        elif token.text in ("true", "false"):
            yield token.start, token.end, "false" if token.text == "true" else "true"
        elif token.text in ("if", "while"):
            yield from self.negated_condition(i)
        elif token.text == "return":
            yield from self.negated_result(i)
        yield from self.removed_statement(i)

    def is_between_blanks(self, token: Token) -> bool:
        return self.text[token.start - 1].isspace() and self.text[token.end:token.end + 1].isspace()

    def changed_sign(self, i: int):
        token = self.tokens[i]
        if token.text in STEPS:
            yield token.start, token.end, STEPS[token.text]
        elif token.text in OPERATORS and self.is_between_blanks(token):
            yield token.start, token.end, OPERATORS[token.text]
        elif token.text == "!":
            yield token.start, token.end, ""

    def changed_number(self, i: int):
        token = self.tokens[i]
        digits = re.fullmatch(r"(0[xX])?([0-9a-fA-F']+?)([uUlLzZ]*)", token.text)
        is_pure = i > 1 and self.tokens[i - 1].text == "=" and self.tokens[i - 2].text in (")", "const", "noexcept")
        if not digits or is_pure:
            return
        prefix, value, suffix = digits.groups()
        value = value.replace("'", "")
        more = hex(int(value, 16) + 1) if prefix else str(int(value, 8 if value[0] == "0" else 10) + 1)
        yield token.start, token.end, more + suffix

    def negated_condition(self, i: int):
        opened = i + 1
        if opened >= len(self.tokens) or self.tokens[opened].text != "(":
            return
        closed = closing(self.tokens, opened)
        inside = self.tokens[opened + 1:closed]
        if not inside or any(token.text in (";", "=") for token in inside):
            return
        yield inside[0].start, inside[-1].end, f"!({self.text[inside[0].start:inside[-1].end]})"

    def negated_result(self, i: int):
        end = self.end_of_statement(i)
        result = self.tokens[i + 1:end]
        if not result or len(result) == 1 and result[0].kind != "word" or result[0].text in ("{", "true", "false"):
            return
        if any(token.text in ("{", "nullptr") for token in result):
            return
        yield result[0].start, result[-1].end, f"!({self.text[result[0].start:result[-1].end]})"

    def end_of_statement(self, i: int) -> int:
        while i < len(self.tokens) and self.tokens[i].text != ";":
            i = closing(self.tokens, i) + 1 if self.tokens[i].text in ("(", "[", "{") else i + 1
        return i

    def removed_statement(self, i: int):
        if self.scopes[i] != "code" or i == 0 or self.tokens[i - 1].text not in (";", "{", "}", ")", "else", ":"):
            return
        first = self.tokens[i]
        if first.text in NOT_A_STATEMENT or first.kind == "sign" and first.text not in ("++", "--", "*", "("):
            return
        end = self.end_of_statement(i)
        if end >= len(self.tokens) or not self.is_action(i, end):
            return
        yield first.start, self.tokens[end].start, ""

    def is_action(self, i: int, end: int) -> bool:
        """A call, an assignment, a step or a jump; not a declaration, of which the type and the name stand apart."""
        statement = self.tokens[i:end]
        if [token.text for token in statement] in (["break"], ["continue"]):
            return True
        before = []
        depth = 0
        for token in statement:
            if depth == 0 and (token.text in ASSIGNMENTS or token.text in ("<<", "=")):
                break
            if token.text in ("(", "[", "{"):
                depth += 1
            elif token.text in (")", "]", "}"):
                depth -= 1
            elif depth == 0:
                before.append(token)
        if not before and statement[0].text not in ("(", "*"):
            return False
        apart = any(left.kind == "word" and right.kind == "word" or left.text in (">", "&", "*", "&&", ">>")
                    and right.kind == "word" and self.text[right.start - 1].isspace()
                    for left, right in zip(before, before[1:]))
        acts = any(token.text in ASSIGNMENTS or token.text in ("(", "++", "--", "<<") for token in statement)
        return acts and not apart

    def mutant(self, start: int, end: int, new: str) -> Mutant:
        line_start = self.text.rfind("\n", 0, start) + 1
        line_end = self.text.find("\n", max(start, end - 1))
        old_line = self.text[line_start:line_end]
        new_line = self.text[line_start:start] + new + self.text[end:line_end]
        return Mutant(self.name, self.text.count("\n", 0, start) + 1, start, end, new, " ".join(old_line.split()),
                      " ".join(new_line.split()))


def mutants_of(root: Path, names: list[str]) -> list[Mutant]:
    found = []
    for name in names:
        found += File(root, name).mutants()
    return found
