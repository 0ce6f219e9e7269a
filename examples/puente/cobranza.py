#!/usr/bin/env python3
"""A host in Python: opens a shop, settles a document, asks a person and listens to a command.

    qvn demo --carpeta demo-qvn      makes the shop
    python3 cobranza.py demo-qvn/tienda.db [path of qvn]

Standard library only. docs/bridge.md explains the lines that go to and fro.
"""
import json
import subprocess
import sys


class Failure(Exception):
    """What the library refused, with its error number."""

    def __init__(self, error):
        super().__init__(error["description"])
        self.number = error["number"]
        self.errors = error.get("errors", [])


class Bridge:
    """Calls methods of the library; `on_event` is given every event and returns the answer of those that ask."""

    def __init__(self, program="qvn", on_event=lambda event: None):
        self._process = subprocess.Popen([program, "puente"], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                         encoding="utf-8")
        self._on_event = on_event
        self._id = 0

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.stdin.close()
        self._process.wait()
        self._process.stdout.close()

    def call(self, op, **arguments):
        """The members of "out": the result, and what was written back. Raises Failure."""
        self._id += 1
        self._send({"id": self._id, "op": op, "in": arguments})
        while True:
            line = self._process.stdout.readline()
            if not line:
                raise EOFError("the bridge ended")
            answer = json.loads(line)
            if "event" in answer:
                if answer["event"] in ASKING:
                    self._send({"answer": self._on_event(answer)})
                else:
                    self._on_event(answer)
            elif "error" in answer:
                raise Failure(answer["error"])
            else:
                return answer["out"]

    def _send(self, line):
        self._process.stdin.write(json.dumps(line, ensure_ascii=False) + "\n")
        self._process.stdin.flush()


ASKING = {"Message", "Alert", "Question", "Choice", "Entry", "Password", "Keyboard", "MessageBox"}


def on_event(event):
    if event["event"] == "Question":
        print("pregunta:", event["text"])
        return True
    if event["event"] == "ReceiveOutputs" and event["Outputs"]:
        print("salida:", event["Outputs"])
    return None


def main():
    database = sys.argv[1]
    program = sys.argv[2] if len(sys.argv) > 2 else "qvn"
    with Bridge(program, on_event) as bridge:
        shop = bridge.call("Connection.Open", ConnectionString="Provider=SQLite;Data Source=" + database)["result"]
        ambiente = bridge.call("Ambiente.New", Conexion=shop)["result"]
        if bridge.call("Question", strMensaje="¿Recalcular el documento 1007?")["result"]:
            bridge.call("ActualizaSaldo", nCobranza=1007, Ambiente=ambiente)
        rows = bridge.call("FastRst", strSQL="SELECT saldo, estado FROM cobranza WHERE cobranza = 1007",
                           Connection=shop)["result"]
        balance, state = bridge.call("Recordset.GetRows", this=rows)["result"][0]
        print("saldo:", balance["value"], state)
        words = bridge.call("PonLetra", Numero=balance["value"], Leyenda="M.N.", bolDecimales=True, strMoneda="PESOS")
        print("letra:", words["result"])
        console = bridge.call("DOSOutputs.New")["result"]
        bridge.call("DOSOutputs.ExecuteCommand", this=console, CommandLine="printf listo")
        try:
            bridge.call("LastRec", strTabla="no_hay", Connection=shop)
        except Failure as failure:
            print("error:", failure.number)


if __name__ == "__main__":
    main()
