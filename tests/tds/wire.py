"""Packets, tokens and values of the tabular data stream, versions 7.2 to 7.4."""

import ctypes
import datetime
import decimal
import re
import socket
import struct
import uuid

BATCH, RPC, RESPONSE, ATTENTION, TRANSACTION, LOGIN, PRELOGIN = 1, 3, 4, 6, 14, 16, 18
DONE, DONE_PROC, DONE_IN_PROC = 0xFD, 0xFE, 0xFF
MORE, FAILED, COUNTED, CANCELLED = 0x01, 0x02, 0x10, 0x20
ENV_DATABASE, ENV_PACKET_SIZE, ENV_COLLATION, ENV_BEGIN, ENV_COMMIT, ENV_ROLLBACK = 1, 4, 7, 8, 9, 10
COLLATION = bytes.fromhex("0904d00034")
VERSION_7_3 = 0x730A0003
NULL_PARTS = b"\xff" * 8


class Refused(Exception):
    """An answer of the server: number, class and text."""

    def __init__(self, number, text, severity=16, state=1):
        super().__init__(text)
        self.number, self.severity, self.state = number, severity, state


class Reader:
    """Takes values from the front of a message."""

    def __init__(self, data, position=0):
        self.data, self.position = data, position

    def take(self, size):
        piece = self.data[self.position:self.position + size]
        if len(piece) != size:
            raise Refused(4002, "The incoming tabular data stream is incomplete.", 16)
        self.position += size
        return piece

    def number(self, form):
        return struct.unpack("<" + form, self.take(struct.calcsize("<" + form)))[0]

    def text(self, form="B"):
        return self.take(2 * self.number(form)).decode("utf-16-le")

    def skip_headers(self):
        self.position += struct.unpack_from("<I", self.data, self.position)[0]

    def rest(self):
        return self.data[self.position:]

    def parts(self):
        if self.take(8) == NULL_PARTS:
            return None
        pieces = []
        while size := self.number("I"):
            pieces.append(self.take(size))
        return b"".join(pieces)


class Link:
    """One client's socket: whole messages in, packets of the agreed size out."""

    def __init__(self, connection):
        self.connection, self.packet_size = connection, 4096
        self.buffer, self.packet = bytearray(), 0

    def _exactly(self, size):
        data = bytearray()
        while len(data) < size:
            piece = self.connection.recv(size - len(data))
            if not piece:
                raise ConnectionError
            data += piece
        return bytes(data)

    def receive(self):
        """The next message: its kind and its bytes."""
        pieces = []
        while True:
            kind, status, size = struct.unpack(">BBH", self._exactly(8)[:4])
            pieces.append(self._exactly(size - 8))
            if status & 1:
                return kind, b"".join(pieces)

    def _send(self, body, last):
        self.packet = (self.packet + 1) % 256
        self.connection.sendall(struct.pack(">BBHHBB", RESPONSE, int(last), len(body) + 8, 0, self.packet, 0) + body)

    def write(self, data):
        self.buffer += data
        room = self.packet_size - 8
        if len(self.buffer) > room:
            start = 0
            while len(self.buffer) - start > room:
                self._send(self.buffer[start:start + room], False)
                start += room
            del self.buffer[:start]

    def finish(self):
        self._send(bytes(self.buffer), True)
        self.buffer.clear()

    def cut(self, resets):
        """Ends the connection as a server that closes it does, or resets it as a failing network does."""
        if resets:
            # Closing a socket resets it at once only when no thread waits on it; connecting it to nothing always does.
            ctypes.CDLL(None).connect(self.connection.fileno(), struct.pack("H14x", socket.AF_UNSPEC), 16)
        else:
            self.connection.shutdown(socket.SHUT_RDWR)


def short_text(text):
    data = text.encode("utf-16-le")
    return bytes([len(data) // 2]) + data


def long_text(text):
    data = text.encode("utf-16-le")
    return struct.pack("<H", len(data) // 2) + data


def message(token, number, state, severity, text):
    body = struct.pack("<iBB", number, state, severity) + long_text(text[:2000])
    body += short_text("QVN") + short_text("") + struct.pack("<i", 1)
    return struct.pack("<BH", token, len(body)) + body


def error(refusal):
    return message(0xAA, refusal.number, refusal.state, refusal.severity, str(refusal))


def env_change(kind, new, old=b"\0"):
    body = bytes([kind]) + new + old
    return struct.pack("<BH", 0xE3, len(body)) + body


def login_ack(version):
    body = b"\x01" + struct.pack(">I", version) + short_text("Microsoft SQL Server") + b"\x0b\0\0\0"
    return struct.pack("<BH", 0xAD, len(body)) + body


def done(token, status, count=None, command=0):
    if count is not None and count >= 0:
        status |= COUNTED
    return struct.pack("<BHHQ", token, status, command, max(count or 0, 0))


def return_value(name, number):
    return (struct.pack("<BH", 0xAC, 0) + short_text(name) + b"\x01" + struct.pack("<IH", 0, 0) +
            b"\x26\x04\x04" + struct.pack("<i", number))


def columns(names, types, identities):
    data = struct.pack("<BH", 0x81, len(names))
    for name, kind in zip(names, types):
        data += struct.pack("<IH", 0, 0x09 | (0x10 if name in identities else 0)) + kind.info + short_text(name[:255])
    return data


class Type:
    """A column type on the wire: how it is described and how a value is written."""

    def __init__(self, info, null, pack):
        self.info, self.null, self.pack = info, null, pack

    def encode(self, value):
        return self.null if value is None else self.pack(value)


def _sized(code, size, pack, more=b""):
    return Type(bytes([code, size]) + more, b"\0", lambda value: bytes([size]) + pack(value))


def _scaled(value, scale):
    with decimal.localcontext() as context:
        context.prec = 80
        number = decimal.Decimal(str(value)).scaleb(scale)
        return int(number.to_integral_value(decimal.ROUND_HALF_UP))


def _decimal(precision, scale):
    size = 4 if precision <= 9 else 8 if precision <= 19 else 12 if precision <= 28 else 16

    def pack(value):
        number = _scaled(value, scale)
        if abs(number) >= 10 ** precision:
            raise Refused(8115, "Arithmetic overflow error converting expression to data type numeric.")
        return bytes([number >= 0]) + abs(number).to_bytes(size, "little")

    return _sized(0x6C, size + 1, pack, bytes([precision, scale]))


def _money(value):
    number = _scaled(value, 4)
    return struct.pack("<iI", number >> 32, number & 0xFFFFFFFF)


_MOMENT = re.compile(r"(?:(\d{4})-?(\d\d)-?(\d\d))?[T ]*(?:(\d\d):(\d\d)(?::(\d\d)(?:[.:](\d{1,7}))?)?)?$")


def moment(value):
    """A stored date as day (datetime.date) and ten-millionths of a second since midnight."""
    found = _MOMENT.match(str(value))
    if not found:
        raise Refused(241, "Conversion failed when converting date and/or time from character string.")
    year, month, day, hour, minute, second, fraction = found.groups()
    try:
        date = datetime.date(int(year or 1900), int(month or 1), int(day or 1))
    except ValueError:
        raise Refused(242, "The conversion resulted in an out-of-range value.") from None
    seconds = int(hour or 0) * 3600 + int(minute or 0) * 60 + int(second or 0)
    return date, seconds * 10_000_000 + int((fraction or "").ljust(7, "0"))


def _datetime(value):
    date, ticks = moment(value)
    return struct.pack("<iI", (date - datetime.date(1900, 1, 1)).days, (ticks * 300 + 5_000_000) // 10_000_000)


def _small_datetime(value):
    date, ticks = moment(value)
    return struct.pack("<HH", (date - datetime.date(1900, 1, 1)).days, ticks // 600_000_000)


def _date(value):
    return (moment(value)[0].toordinal() - 1).to_bytes(3, "little")


def _time(value):
    return moment(value)[1].to_bytes(5, "little")


def _bytes(value):
    return value if isinstance(value, bytes) else str(value).encode("utf-8")


def _limited(code, size, more, convert):
    def pack(value):
        data = convert(value)
        if len(data) > size:
            raise Refused(8152, "String or binary data would be truncated.")
        return struct.pack("<H", len(data)) + data

    return Type(struct.pack("<BH", code, size) + more, b"\xff\xff", pack)


def _unlimited(code, more, convert):
    def pack(value):
        data = convert(value)
        body = struct.pack("<I", len(data)) + data if data else b""
        return struct.pack("<Q", len(data)) + body + b"\0\0\0\0"

    return Type(struct.pack("<BH", code, 0xFFFF) + more, NULL_PARTS, pack)


def _utf16(value):
    return str(value).encode("utf-16-le", "replace")


LONG_TEXT = _unlimited(0xE7, COLLATION, _utf16)
LONG_BYTES = _unlimited(0xA5, b"", _bytes)
BIG = _sized(0x26, 8, lambda value: struct.pack("<q", int(value)))
INT = _sized(0x26, 4, lambda value: struct.pack("<i", int(value)))
FLOAT = _sized(0x6D, 8, lambda value: struct.pack("<d", float(value)))
_SIMPLE = {
    "INT": INT, "INTEGER": INT, "BIGINT": BIG,
    "SMALLINT": _sized(0x26, 2, lambda value: struct.pack("<h", int(value))),
    "TINYINT": _sized(0x26, 1, lambda value: struct.pack("<B", int(value))),
    "BIT": _sized(0x68, 1, lambda value: bytes([bool(value)])),
    "FLOAT": FLOAT, "DOUBLE": FLOAT, "DOUBLE PRECISION": FLOAT,
    "REAL": _sized(0x6D, 4, lambda value: struct.pack("<f", float(value))),
    "MONEY": _sized(0x6E, 8, _money),
    "SMALLMONEY": _sized(0x6E, 4, lambda value: struct.pack("<i", _scaled(value, 4))),
    "DATETIME": _sized(0x6F, 8, _datetime), "SMALLDATETIME": _sized(0x6F, 4, _small_datetime),
    "UNIQUEIDENTIFIER": _sized(0x24, 16, lambda value: uuid.UUID(str(value)).bytes_le),
    "NTEXT": LONG_TEXT, "TEXT": LONG_TEXT, "IMAGE": LONG_BYTES,
}
_SINCE_7_3 = {
    "DATE": Type(b"\x28", b"\0", lambda value: b"\x03" + _date(value)),
    "TIME": Type(b"\x29\x07", b"\0", lambda value: b"\x05" + _time(value)),
    "DATETIME2": Type(b"\x2a\x07", b"\0", lambda value: b"\x08" + _time(value) + _date(value)),
}
_DECLARED = re.compile(r"\s*([A-Za-z0-9]+(?: PRECISION)?)\s*(?:\(\s*(-?\d+)\s*(?:,\s*(\d+)\s*)?\))?\s*$", re.I)


def declared_type(text, version):
    """The type that a column was declared with; None when it says nothing."""
    found = _DECLARED.match(text or "")
    if not found:
        return None
    name, size, scale = found[1].upper(), int(found[2] or 0), int(found[3] or 0)
    if name in ("DECIMAL", "NUMERIC"):
        return _decimal(size or 18, scale)
    if name in ("NVARCHAR", "VARCHAR", "NCHAR", "CHAR"):
        return LONG_TEXT if size < 0 or size > 4000 else _limited(0xE7, 2 * (size or 1), COLLATION, _utf16)
    if name in ("VARBINARY", "BINARY"):
        return LONG_BYTES if size < 0 or size > 8000 else _limited(0xA5, size or 1, b"", _bytes)
    if version >= VERSION_7_3 and name in _SINCE_7_3:
        return _SINCE_7_3[name]
    return _limited(0xE7, 60, COLLATION, _utf16) if name in _SINCE_7_3 else _SIMPLE.get(name)


def type_of(values):
    """The type that holds all these values of an expression."""
    kinds = {type(value) for value in values if value is not None}
    if not kinds or kinds == {int}:
        fits = all(-2**31 <= value < 2**31 for value in values if value is not None)
        return INT if fits else BIG
    if kinds <= {int, float}:
        return FLOAT
    if kinds == {bytes}:
        return LONG_BYTES
    longest = max(len(str(value).encode("utf-16-le")) // 2 for value in values if value is not None)
    return LONG_TEXT if longest > 4000 else _limited(0xE7, 8000, COLLATION, _utf16)


_FIXED = {0x30: "B", 0x32: "B", 0x34: "h", 0x38: "i", 0x7F: "q", 0x3B: "f", 0x3E: "d"}


def _datetime_parameter(data):
    if len(data) == 4:
        days, minutes = struct.unpack("<HH", data)
        since = datetime.timedelta(days=days, minutes=minutes)
    else:
        days, ticks = struct.unpack("<iI", data)
        since = datetime.timedelta(days=days, milliseconds=round(ticks * 10 / 3))
    return (datetime.datetime(1900, 1, 1) + since).isoformat(" ", "milliseconds")


def _short_parameter(code, data, scale):
    if code in (0x6A, 0x6C):
        number = decimal.Decimal(int.from_bytes(data[1:], "little")).scaleb(-scale)
        return str(number if data[0] else -number)
    if code == 0x6E:
        high, low = struct.unpack("<iI", data) if len(data) == 8 else (0, struct.unpack("<i", data)[0])
        return str(decimal.Decimal((high << 32) + low).scaleb(-4))
    if code == 0x6D:
        return struct.unpack("<f" if len(data) == 4 else "<d", data)[0]
    if code == 0x6F:
        return _datetime_parameter(data)
    if code == 0x24:
        return str(uuid.UUID(bytes_le=data))
    return int.from_bytes(data, "little", signed=len(data) > 1)


def parameter(reader):
    """The next parameter of a procedure call: its name and its value."""
    name, _status, code = reader.text(), reader.take(1), reader.take(1)[0]
    if code in _FIXED:
        return name, reader.number(_FIXED[code])
    if code in (0x24, 0x26, 0x68, 0x6A, 0x6C, 0x6D, 0x6E, 0x6F):
        reader.take(1)
        scale = reader.take(2)[1] if code in (0x6A, 0x6C) else 0
        data = reader.take(reader.number("B"))
        return name, _short_parameter(code, data, scale) if data else None
    if code in (0x22, 0x23, 0x63):
        reader.take(4 if code == 0x22 else 9)
        size = reader.number("i")
        data = None if size < 0 else reader.take(size)
    elif code in (0xA5, 0xA7, 0xAD, 0xAF, 0xE7, 0xEF):
        limit = reader.number("H")
        reader.take(0 if code in (0xA5, 0xAD) else 5)
        if limit == 0xFFFF:
            data = reader.parts()
        else:
            size = reader.number("H")
            data = None if size == 0xFFFF else reader.take(size)
    else:
        raise Refused(8009, f"The parameter type 0x{code:02X} is unknown to this server.")
    if data is None or code in (0x22, 0xA5, 0xAD):
        return name, data
    return name, data.decode("utf-16-le" if code in (0x63, 0xE7, 0xEF) else "cp1252")
