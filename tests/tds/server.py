"""A server for tests of ODBC drivers: the tabular data stream in front of SQLite.

    server.py --home=FOLDER      the password of "sa" comes in the variable QVN_TDS_PASSWORD

Listens on a port of 127.0.0.1 that the system chooses and writes it to FOLDER/port once clients can connect. Each
database is a file in FOLDER; qvn_test is there from the start. Without encryption.
"""

import argparse
import contextlib
import itertools
import os
import queue
import re
import socket
import sqlite3
import struct
import sys
import threading

import catalog
import dialect
import wire
from engine import GOING_ON, Cancelled, Engine, database_file
from wire import Refused

VERSIONS = {0x72: 0x72090002, 0x73: 0x730B0003, 0x74: 0x74000004}
PROCEDURES = {10: "sp_executesql", 11: "sp_prepare", 12: "sp_execute", 13: "sp_prepexec", 15: "sp_unprepare"}
PRELOGIN_ANSWER = bytes.fromhex("00001a0006 0100200001 0200210001 0300220000 0400220001 ff") + bytes(
    (11, 0, 8, 0x34, 0, 0, 2, 0, 0))
TRANSACTION_ID = b"\x08\x01\0\0\0\0\0\0\0"
SELECT_COMMAND = 0xC1


def create_database(home, name):
    path = database_file(home, name)
    if os.path.exists(path):
        raise Refused(1801, f"Database '{name}' already exists. Choose a different database name.")
    database = sqlite3.connect(path)
    database.execute("PRAGMA journal_mode=WAL")  # readers and writers do not wait for each other
    database.close()


def drop_database(home, name):
    path = database_file(home, name)
    if not os.path.exists(path):
        raise Refused(3701, f"Cannot drop the database '{name}', because it does not exist.", 11, 5)
    for ending in ("", "-wal", "-shm"):
        if os.path.exists(path + ending):
            os.remove(path + ending)


class Session:
    """One client from its first packet to its last."""

    open_sessions = {}
    numbers = itertools.count(51)

    def __init__(self, connection, home, password):
        self.link, self.home, self.password = wire.Link(connection), home, password
        self.spid = next(self.numbers)
        self.messages = queue.Queue()
        self.prepared, self.handles = {}, itertools.count(1)
        self.engine = None

    def run(self):
        self.open_sessions[self.spid] = self
        try:
            if self._log_in():
                reader = threading.Thread(target=self._read, daemon=True)
                reader.start()
                while (item := self.messages.get()) is not None:
                    self._answer(*item)
        except (OSError, EOFError):
            pass  # the client has gone
        finally:
            del self.open_sessions[self.spid]
            if self.engine:
                self.engine.close()
            with contextlib.suppress(OSError):
                self.link.cut(False)  # wakes the reading thread, or the socket would stay open behind the client's back
            self.link.connection.close()

    def _read(self):
        """Takes messages while a statement runs, so that the client can stop it."""
        try:
            while True:
                item = self.link.receive()
                if item[0] == wire.ATTENTION:
                    self.engine.cancelled.set()
                self.messages.put(item)
        except OSError:
            self.engine.cancelled.set()
            self.messages.put(None)

    def _log_in(self):
        kind, data = self.link.receive()
        while kind == wire.PRELOGIN:
            self.link.write(PRELOGIN_ANSWER)
            self.link.finish()
            kind, data = self.link.receive()
        if kind != wire.LOGIN:
            return False
        try:
            self._accept(data)
        except Refused as refusal:
            self.link.write(wire.error(refusal) + wire.done(wire.DONE, wire.FAILED))
            self.link.finish()
            return False
        self.link.finish()
        return True

    def _accept(self, data):
        def field(offset):
            start, length = struct.unpack_from("<HH", data, offset)
            return data[start:start + 2 * length]

        version = VERSIONS.get(data[7])
        user = field(40).decode("utf-16-le")
        plain = bytes(((byte ^ 0xA5) << 4 | (byte ^ 0xA5) >> 4) & 0xFF for byte in field(44)).decode("utf-16-le")
        if version is None or user != "sa" or plain != self.password:
            raise Refused(18456, f"Login failed for user '{user}'.", 14)
        self.engine = Engine(self.home, self.spid, version)
        name = field(68).decode("utf-16-le") or "qvn_test"
        try:
            self.engine.use(name)
        except Refused:
            text = f'Cannot open database "{name}" requested by the login. The login failed.'
            raise Refused(4060, text, 11) from None
        size = min(max(struct.unpack_from("<I", data, 8)[0], 512), 32767)
        self._say_database("master")
        self.link.write(wire.env_change(wire.ENV_COLLATION, b"\x05" + wire.COLLATION))
        self.link.write(wire.login_ack(version))
        self.link.write(wire.env_change(wire.ENV_PACKET_SIZE, wire.short_text(str(size)), wire.short_text("4096")))
        self.link.write(wire.done(wire.DONE, 0))
        self.link.packet_size = size

    def _say_database(self, old):
        self.link.write(wire.env_change(wire.ENV_DATABASE, wire.short_text(self.engine.name), wire.short_text(old)))
        text = f"Changed database context to '{self.engine.name}'."
        self.link.write(wire.message(0xAB, 5701, 2, 0, text))

    def _answer(self, kind, data):
        if kind == wire.ATTENTION:
            self.engine.cancelled.clear()
            self.link.write(wire.done(wire.DONE, wire.CANCELLED))
            self.link.finish()
            return
        answers = {wire.BATCH: self._batch, wire.RPC: self._call, wire.TRANSACTION: self._transaction}
        try:
            reader = wire.Reader(data)
            reader.skip_headers()
            answers[kind](reader)
        except Cancelled:
            return  # the answer ends with that to the client's attention
        except Refused as refusal:
            self.link.write(wire.error(refusal) + wire.done(wire.DONE, wire.FAILED))
        self.link.finish()

    def _batch(self, reader):
        text = reader.rest().decode("utf-16-le")
        if call := dialect.procedure_call(text):
            self._procedure(*call)
            return
        found = dialect.statements(text)
        for index, statement in enumerate(found):
            if not self._one(statement, {}, wire.DONE, wire.MORE if index + 1 < len(found) else 0):
                return
        if not found:
            self.link.write(wire.done(wire.DONE, 0))

    def _one(self, statement, values, token, more):
        """Runs a statement of a batch; true when the next one is to follow."""
        try:
            self._statement(statement, values, token, more)
            return True
        except Refused as refusal:
            goes_on = refusal.number in GOING_ON
            self.link.write(wire.error(refusal) + wire.done(token, wire.FAILED | (more if goes_on or token != wire.DONE
                                                                                  else 0)))
            return goes_on

    def _statement(self, statement, values, token, more):
        if self._command(statement):
            self.link.write(wire.done(token, more))
            return
        shape, rows = self.engine.execute(statement, values)
        if shape is None:
            self.link.write(wire.done(token, more, rows))
            return
        names, types, identities = shape
        self.link.write(wire.columns(names, types, identities))
        self.link.write(wire.done(token, more, self._send_rows(types, rows), SELECT_COMMAND))

    def _send_rows(self, types, rows):
        count = 0
        for row in rows:
            try:
                data = b"\xd1" + b"".join([kind.encode(value) for kind, value in zip(types, row)])
            except (struct.error, ValueError, ArithmeticError):
                raise Refused(8115, "Arithmetic overflow error converting expression to the column's type.") from None
            self.link.write(data)
            count += 1
        self.engine.row_count = count
        return count

    def _command(self, statement):
        """True for a statement that is not SQLite's."""
        words = statement.text.split()
        second = words[1].upper() if len(words) > 1 else ""
        last = words[-1].strip("[]\"")
        if statement.keyword == "SET":
            if second == "LOCK_TIMEOUT":
                wait = int(words[2])
                self.engine.lock_wait = float("inf") if wait < 0 else wait / 1000
        elif statement.keyword == "WAITFOR":
            hours, minutes, seconds = re.search(r"(\d+):(\d+):([\d.]+)", statement.text).groups()
            if self.engine.cancelled.wait(int(hours) * 3600 + int(minutes) * 60 + float(seconds)):
                raise Cancelled
        elif statement.keyword == "BEGIN" and second.startswith("TRAN"):
            self._begin()
        elif statement.keyword in ("COMMIT", "ROLLBACK"):
            self._end(statement.keyword)
        elif statement.keyword == "USE":
            old = self.engine.name
            self.engine.use(last)
            self._say_database(old)
        elif second == "DATABASE" and statement.keyword in ("CREATE", "DROP"):
            (create_database if statement.keyword == "CREATE" else drop_database)(self.home, last)
        elif statement.keyword == "KILL":
            self._kill(int(words[1]), last.upper() == "RESET")
        else:
            return False
        return True

    def _kill(self, spid, resets):
        victim = self.open_sessions.get(spid)
        if victim is None:
            raise Refused(6106, f"Process ID {spid} is not an active process ID.")
        victim.link.cut(resets)

    def _begin(self):
        if self.engine.depth == 0:
            self.link.write(wire.env_change(wire.ENV_BEGIN, TRANSACTION_ID))
        self.engine.begin()

    def _end(self, word):
        if self.engine.depth == 0:
            number = 3902 if word == "COMMIT" else 3903
            raise Refused(number, f"The {word} TRANSACTION request has no corresponding BEGIN TRANSACTION.")
        (self.engine.commit if word == "COMMIT" else self.engine.rollback)()
        if self.engine.depth == 0:
            kind = wire.ENV_COMMIT if word == "COMMIT" else wire.ENV_ROLLBACK
            self.link.write(wire.env_change(kind, b"\0", TRANSACTION_ID))

    def _transaction(self, reader):
        request = reader.number("H")
        if request == 5:
            self._begin()
        elif request in (7, 8):
            self._end("COMMIT" if request == 7 else "ROLLBACK")
            reader.take(reader.number("B"))
            if reader.number("B") & 1:
                self._begin()
        else:
            raise Refused(3989, "The transaction request is not known to this server.")
        self.link.write(wire.done(wire.DONE, 0))

    def _call(self, reader):
        length = reader.number("H")
        name = (PROCEDURES.get(reader.number("H"), "") if length == 0xFFFF
                else reader.take(2 * length).decode("utf-16-le").lower().rpartition(".")[2])
        reader.take(2)
        arguments = []
        while reader.position < len(reader.data):
            arguments.append(wire.parameter(reader))
        if name in catalog.PROCEDURES:
            self._procedure(name, {given.lower() or index: value for index, (given, value) in enumerate(arguments)})
            return
        output = self._run_prepared(name, arguments)
        self.link.write(struct.pack("<Bi", 0x79, 0) + output + wire.done(wire.DONE_PROC, 0))

    def _run_prepared(self, name, arguments):
        values = [value for _, value in arguments]
        if name == "sp_unprepare":
            self.prepared.pop(values[0], None)
            return b""
        if name == "sp_execute":
            if values[0] not in self.prepared:
                raise Refused(8179, f"Could not find prepared statement with handle {values[0]}.")
            self._run_text(*self.prepared[values[0]], arguments[1:])
            return b""
        if name == "sp_executesql":
            self._run_text(values[0], values[1] if len(values) > 1 else "", arguments[2:])
            return b""
        if name not in ("sp_prepare", "sp_prepexec"):
            raise Refused(2812, f"Could not find stored procedure '{name}'.")
        handle = next(self.handles)
        self.prepared[handle] = values[2], values[1]
        if name == "sp_prepexec":
            self._run_text(values[2], values[1], arguments[3:])
        return wire.return_value(arguments[0][0], handle)

    def _run_text(self, text, declaration, arguments):
        """Runs a prepared text, whose identity values are nobody else's."""
        names = re.findall(r"@(\w+)\s", declaration or "")
        values = {given[1:] or name: value for name, (given, value) in zip(names, arguments)}
        outer, self.engine.scope_identity = self.engine.scope_identity, None
        try:
            for statement in dialect.statements(text):
                if not self._one(statement, values, wire.DONE_IN_PROC, wire.MORE):
                    break
        finally:
            self.engine.scope_identity = outer

    def _procedure(self, name, arguments):
        if name not in catalog.PROCEDURES:
            raise Refused(2812, f"Could not find stored procedure '{name}'.")
        names, rows = catalog.answer(self.engine.database, self.engine.name, name, arguments)
        types = [wire.type_of([row[index] for row in rows]) for index in range(len(names))]
        self.link.write(wire.columns(names, types, ()))
        count = self._send_rows(types, rows)
        self.link.write(wire.done(wire.DONE_IN_PROC, wire.MORE, count, SELECT_COMMAND))
        self.link.write(struct.pack("<Bi", 0x79, 0) + wire.done(wire.DONE_PROC, 0))


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--home", required=True)
    home = arguments.parse_args().home
    create_database(home, "qvn_test")
    listener = socket.create_server(("127.0.0.1", 0), backlog=64)
    with open(os.path.join(home, "port.new"), "w", encoding="ascii") as file:
        file.write(str(listener.getsockname()[1]))
    os.rename(os.path.join(home, "port.new"), os.path.join(home, "port"))
    while True:
        connection, _ = listener.accept()
        connection.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
        session = Session(connection, home, os.environ["QVN_TDS_PASSWORD"])
        threading.Thread(target=session.run, daemon=True).start()


if __name__ == "__main__":
    sys.exit(main())
