"""One session's statements on its SQLite database."""

import os
import re
import sqlite3
import threading
import time

import catalog
from wire import Refused, declared_type, type_of

LOCK_WAIT_SECONDS = 2.0
ROWS_LOOKED_AT = 64  # to choose the type of an expression
_NAME = re.compile(r"qvn_\w{1,60}$")
# The beginning of SQLite's words -> number, class and state of the error that stands for them.
_REFUSALS = (
    ("no such table", 208, 16, 1), ("no such column", 207, 16, 1), ("no such function", 195, 15, 10),
    ("UNIQUE constraint", 2627, 14, 1), ("NOT NULL constraint", 515, 16, 2), ("CHECK constraint", 547, 16, 0),
    ("FOREIGN KEY constraint", 547, 16, 0), ("database is locked", 1222, 16, 51),
    ("database table is locked", 1222, 16, 51), ("table ", 213, 16, 1), ("near ", 102, 15, 1),
    ("incomplete input", 102, 15, 1), ("unrecognized token", 102, 15, 1),
)
_EXISTING = re.compile(r"(table|index|view) .* already exists", re.I)
# Errors after which the rest of a batch still runs.
GOING_ON = frozenset({515, 547, 2627})


class Cancelled(Exception):
    """The client asked to stop, or has gone."""


def _refusal(error):
    text = str(error)
    if _EXISTING.match(text):
        return Refused(2714, f"There is already an object with that name: {text}.", 16, 6)
    for words, number, severity, state in _REFUSALS:
        if text.startswith(words):
            return Refused(number, text, severity, state)
    return Refused(50000, text, 16)


def database_file(home, name):
    if not _NAME.match(name):
        raise Refused(911, f"Database '{name}' does not exist. Make sure that the name is entered correctly.")
    return os.path.join(home, name + ".db")


class Engine:
    """Runs statements; `cancelled` stops the one that runs."""

    def __init__(self, home, spid, version):
        self.home, self.spid, self.version = home, spid, version
        self.cancelled = threading.Event()
        self.database, self.name = None, ""
        self.scope_identity = self.last_identity = None
        self.row_count = self.depth = 0
        self.lock_wait = LOCK_WAIT_SECONDS
        self.begins = False  # a transaction was asked for, no statement has opened it yet

    def use(self, name):
        path = database_file(self.home, name)
        if not os.path.exists(path):
            raise Refused(911, f"Database '{name}' does not exist. Make sure that the name is entered correctly.")
        self.close()
        self.database = sqlite3.connect(path, timeout=0, isolation_level=None, check_same_thread=False)
        self.name = name
        self.database.execute("PRAGMA foreign_keys=ON")
        self.database.set_progress_handler(self.cancelled.is_set, 5000)
        functions = {
            "SCOPE_IDENTITY": lambda: self.scope_identity, "LAST_IDENTITY": lambda: self.last_identity,
            "SPID": lambda: self.spid, "DB_NAME": lambda: self.name, "TRANCOUNT": lambda: self.depth,
            "LAST_ROWCOUNT": lambda: self.row_count, "SUSER_SNAME": lambda: "sa",
            "SERVER_VERSION": lambda: f"Microsoft SQL Server 2012 - 11.0 (test server on SQLite {sqlite3.sqlite_version})",
            "GETDATE": lambda: time.strftime("%Y-%m-%d %H:%M:%S"),
        }
        for function, body in functions.items():
            self.database.create_function(function, 0, body)
        self.database.create_function("LEN", 1, lambda text: None if text is None else len(str(text).rstrip(" ")))
        self.database.create_function("ISNULL", 2, lambda value, other: other if value is None else value)

    def close(self):
        if self.database:
            self.database.close()
            self.database = None

    def begin(self):
        self.begins = self.begins or self.depth == 0
        self.depth += 1

    def commit(self):
        self.depth = max(self.depth - 1, 0)
        if self.depth == 0:
            self._end("COMMIT")

    def rollback(self):
        self.depth = 0
        self._end("ROLLBACK")

    def _end(self, word):
        self.begins = False
        if self.database.in_transaction:
            self._run(word, {})

    def _run(self, text, values):
        """Runs a text; waits for other sessions' locks as long as this session may."""
        deadline = time.monotonic() + self.lock_wait
        while True:
            if self.cancelled.is_set():
                raise Cancelled
            try:
                return self.database.execute(text, values)
            except sqlite3.OperationalError as error:
                if str(error) == "interrupted":
                    raise Cancelled from None
                if "locked" not in str(error) or time.monotonic() >= deadline:
                    raise _refusal(error) from None
                self.cancelled.wait(0.01)
            except (sqlite3.Error, sqlite3.Warning, OverflowError) as error:
                raise _refusal(error) from None

    def _open_transaction(self, statement):
        if self.begins:
            reads = statement.keyword in ("SELECT", "WITH") and not statement.locks
            self._run("BEGIN" if reads else "BEGIN IMMEDIATE", {})
            self.begins = False

    def _declared(self, statement):
        if statement.keyword not in ("SELECT", "WITH"):
            return []
        try:
            self._run("CREATE TEMP VIEW qvn_shape AS " + statement.shape, {})
            types = [row[2] for row in self._run("PRAGMA table_info(qvn_shape)", {}).fetchall()]
        except (Refused, sqlite3.Error):
            types = []  # the statement itself will say what is wrong with it
        self._run("DROP VIEW IF EXISTS qvn_shape", {})
        return types

    def _note_identity(self, statement, cursor):
        table = re.match(r"INSERT\s+(?:INTO\s+)?[\[\"]?(\w+)", statement.text, re.I)
        if table and catalog.identity_columns(self.database, table[1]):
            self.scope_identity = self.last_identity = cursor.lastrowid

    def execute(self, statement, values):
        """Column names, their types, identity columns and rows of a statement; or None and the number of rows."""
        self._open_transaction(statement)
        declared = self._declared(statement)
        cursor = self._run(statement.text, values)
        if cursor.description is None:
            if statement.keyword == "INSERT":
                self._note_identity(statement, cursor)
            self.row_count = max(cursor.rowcount, 0)
            return None, cursor.rowcount
        names = [column[0] for column in cursor.description]
        head = self._fetch(cursor)
        types = []
        for index in range(len(names)):
            known = declared_type(declared[index], self.version) if index < len(declared) else None
            types.append(known or type_of([row[index] for row in head]))
        identities = catalog.identity_columns(self.database, statement.text) if declared else frozenset()
        return (names, types, identities), self._rows(head, cursor)

    def _fetch(self, cursor):
        try:
            return cursor.fetchmany(ROWS_LOOKED_AT)
        except sqlite3.OperationalError as error:
            if str(error) == "interrupted":
                raise Cancelled from None
            raise _refusal(error) from None

    def _rows(self, head, cursor):
        while head:
            yield from head
            if self.cancelled.is_set():
                raise Cancelled
            head = self._fetch(cursor)
