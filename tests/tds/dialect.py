"""T-SQL texts for SQLite: what the tests' statements need, no more."""

import re

_TOKEN = re.compile(r"""
    N?'[^']*(?:''[^']*)*' | "[^"]*(?:""[^"]*)*" | \[[^\]]*\] | --[^\n]* | /\*.*?\*/
  | 0x[0-9A-Fa-f]* | \d[\w.]* | @@?\w+ | [^\W\d][\w$\#]* | \s+ | .""", re.S | re.X)
_GLOBALS = {"@@IDENTITY": "LAST_IDENTITY()", "@@SPID": "SPID()", "@@VERSION": "SERVER_VERSION()",
            "@@TRANCOUNT": "TRANCOUNT()", "@@ROWCOUNT": "LAST_ROWCOUNT()"}
_IDENTITY = re.compile(
    r"\b(?:INT|INTEGER|BIGINT)\s+IDENTITY\b(?:\s*\(\s*\d+\s*,\s*\d+\s*\))?((?:\s+NOT)?\s+NULL)?(\s+PRIMARY\s+KEY)?", re.I)
_MAX = re.compile(r"\(\s*MAX\s*\)", re.I)
_HINT = re.compile(r"\bWITH\s*\(\s*((?:[A-Z]+LOCKX?|NOWAIT)\b[^)]*)\)", re.I)
_TOP = re.compile(r"^(SELECT(?:\s+DISTINCT)?)\s+TOP\s*\(?\s*(\d+)\s*\)?", re.I)
_OUTPUT = re.compile(r"\s+OUTPUT\s+INSERTED\s*\.\s*(\w+)", re.I)
_OWNER = re.compile(r"\bdbo\s*\.\s*|\[dbo\]\s*\.\s*", re.I)


class Statement:
    """One statement of a batch, ready for SQLite."""

    def __init__(self, tokens):
        self.text = _rewrite(tokens)
        self.keyword = (re.match(r"\w*", self.text)[0]).upper()
        self.locks = any(re.search(r"UPDLOCK|XLOCK|TABLOCKX", hint, re.I) for hint in self._hints(tokens))
        self.shape = "".join("NULL" if token[0] == "@" else token for token in _TOKEN.findall(self.text))

    @staticmethod
    def _hints(tokens):
        return _HINT.findall("".join(token for token in tokens if token[0] not in "'N"))


def _value(token):
    if token[:2] == "N'" or token[:2] == "n'":
        return token[1:]
    if token[:2] in ("0x", "0X"):
        digits = token[2:]
        return f"X'{'0' * (len(digits) % 2)}{digits}'"
    if token[:2] == "--" or token[:2] == "/*":
        return " "
    return _GLOBALS.get(token.upper(), token) if token[0] == "@" else token


def _rewrite(tokens):
    """Patterns are applied around the quoted texts, which stay as they are."""
    texts, parts = [], []
    for token in map(_value, tokens):
        if token[0] == "'" or token[:2] == "X'":
            parts.append(f"\x00{len(texts)}\x00")
            texts.append(token)
        else:
            parts.append(token)
    text = "".join(parts).strip()
    text = _OWNER.sub("", _HINT.sub("", text))
    if text[:6].upper() in ("CREATE", "ALTER "):
        text = _MAX.sub("(-1)", _IDENTITY.sub("INTEGER PRIMARY KEY AUTOINCREMENT", text))
    if output := _OUTPUT.search(text):
        text = f"{text[:output.start()]}{text[output.end():]} RETURNING {output[1]}"
    if top := _TOP.match(text):
        text = f"{top[1]} {text[top.end():]} LIMIT {top[2]}"
    return re.sub("\x00(\\d+)\x00", lambda found: texts[int(found[1])], text)


def statements(text):
    """The statements of a batch, split at semicolons."""
    found, tokens = [], []
    for token in _TOKEN.findall(text) + [";"]:
        if token != ";":
            tokens.append(token)
            continue
        statement = Statement(tokens)
        if statement.text:
            found.append(statement)
        tokens = []
    return found


def procedure_call(text):
    """Name and arguments (a dictionary; those without a name count from 0) of an EXEC statement; None for others."""
    found = re.match(r"\s*EXEC(?:UTE)?\s+(?:\[?\w*\]?\.)*\[?(\w+)\]?\s*(.*)$", text, re.I | re.S)
    if not found:
        return None
    arguments = {}
    pattern = r"(?:(@\w+)\s*=\s*)?(?:N?'((?:[^']|'')*)'|(NULL|-?\d+))"
    for index, (name, quoted, plain) in enumerate(re.findall(pattern, found[2], re.I)):
        value = None if plain.upper() == "NULL" else plain or quoted.replace("''", "'")
        arguments[name.lower() or index] = value
    return found[1].lower(), arguments
