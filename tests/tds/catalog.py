"""The catalogue procedures that ODBC asks for, answered from SQLite's own catalogue."""

import re

_ODBC_TYPES = {"INT": 4, "INTEGER": 4, "SMALLINT": 5, "TINYINT": -6, "BIGINT": -5, "BIT": -7, "FLOAT": 6, "REAL": 7,
               "DECIMAL": 3, "NUMERIC": 2, "MONEY": 3, "DATETIME": 93, "NVARCHAR": -9, "NTEXT": -10, "VARBINARY": -3,
               "IMAGE": -4}
_ARGUMENT = {"sp_pkeys": ("@table_name", 0), "sp_columns": ("@table_name", 0), "sp_tables": ("@table_name", 0)}
PROCEDURES = frozenset(_ARGUMENT)


def identity_columns(database, text):
    """Names of the identity columns of the tables that a statement mentions."""
    words = {word.lower() for word in re.findall(r"\w+", text[:4000])}
    found = set()
    for name, sql in database.execute("SELECT name, sql FROM sqlite_master WHERE sql LIKE '%AUTOINCREMENT%'"):
        if name.lower() in words:
            found.update(re.findall(r"\[?(\w+)\]?\s+INTEGER PRIMARY KEY AUTOINCREMENT", sql))
    return found


def _table_columns(database, table):
    return database.execute(
        "SELECT m.name, p.name, p.type, p.[notnull], p.pk, p.cid FROM sqlite_master m, pragma_table_info(m.name) p"
        " WHERE m.type IN ('table', 'view') AND m.name LIKE ? ORDER BY m.name, p.cid", (table or "%",)).fetchall()


def answer(database, schema, procedure, arguments):
    """Column names and rows of a catalogue procedure."""
    table = next((arguments[key] for key in _ARGUMENT[procedure] if key in arguments), None)
    if procedure == "sp_tables":
        names = ["TABLE_QUALIFIER", "TABLE_OWNER", "TABLE_NAME", "TABLE_TYPE", "REMARKS"]
        rows = database.execute("SELECT name, upper(type) FROM sqlite_master WHERE type IN ('table', 'view')"
                                " AND name NOT LIKE 'sqlite_%' AND name LIKE ? ORDER BY 1", (table or "%",))
        return names, [(schema, "dbo", name, kind, None) for name, kind in rows]
    columns = _table_columns(database, table)
    if procedure == "sp_pkeys":
        names = ["TABLE_QUALIFIER", "TABLE_OWNER", "TABLE_NAME", "COLUMN_NAME", "KEY_SEQ", "PK_NAME"]
        keys = sorted((row for row in columns if row[4]), key=lambda row: (row[0], row[4]))
        return names, [(schema, "dbo", row[0], row[1], row[4], "PK_" + row[0]) for row in keys]
    names = ["TABLE_QUALIFIER", "TABLE_OWNER", "TABLE_NAME", "COLUMN_NAME", "DATA_TYPE", "TYPE_NAME", "PRECISION",
             "LENGTH", "SCALE", "RADIX", "NULLABLE", "REMARKS", "COLUMN_DEF", "SQL_DATA_TYPE", "SQL_DATETIME_SUB",
             "CHAR_OCTET_LENGTH", "ORDINAL_POSITION", "IS_NULLABLE", "SS_DATA_TYPE"]
    return names, [_column_row(schema, row) for row in columns]


def _column_row(schema, row):
    table, name, declared, not_null, key, position = row
    kind = re.match(r"\w*", declared)[0].upper()
    sizes = [int(size) for size in re.findall(r"\d+", declared)] + [0, 0]
    code = _ODBC_TYPES.get(kind, -9)
    nullable = 0 if not_null or key else 1
    return (schema, "dbo", table, name, code, kind.lower(), sizes[0] or 10, sizes[0] or 10, sizes[1], 10, nullable, None,
            None, code, None, None, position + 1, "YES" if nullable else "NO", 0)
