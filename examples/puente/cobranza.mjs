// A host in Node.js: opens a shop, settles a document, asks a person and listens to a command.
//
//   qvn demo --carpeta demo-qvn      makes the shop
//   node cobranza.mjs demo-qvn/tienda.db [path of qvn]
//
// Standard library only. docs/bridge.md explains the lines that go to and fro.
import { spawn } from 'node:child_process';
import { createInterface } from 'node:readline';

const ASKING = new Set(['Message', 'Alert', 'Question', 'Choice', 'Entry', 'Password', 'Keyboard', 'MessageBox']);

// What the library refused, with its error number.
class Failure extends Error {
  constructor({ number, description, errors = [] }) {
    super(description);
    this.number = number;
    this.errors = errors;
  }
}

// Calls methods of the library; `onEvent` is given every event and returns the answer of those that ask.
class Bridge {
  #process;
  #waiting = [];
  #id = 0;

  constructor(program, onEvent) {
    this.#process = spawn(program, ['puente'], { stdio: ['pipe', 'pipe', 'inherit'] });
    createInterface({ input: this.#process.stdout }).on('line', (line) => {
      const answer = JSON.parse(line);
      if (answer.event) {
        const reply = onEvent(answer);
        if (ASKING.has(answer.event)) this.#send({ answer: reply ?? null });
        return;
      }
      // Answers come in the order of the requests.
      const { resolve, reject } = this.#waiting.shift();
      if (answer.error) reject(new Failure(answer.error));
      else resolve(answer.out);
    });
  }

  // The members of "out": the result, and what was written back.
  call(op, args = {}) {
    return new Promise((resolve, reject) => {
      this.#waiting.push({ resolve, reject });
      this.#id += 1;
      this.#send({ id: this.#id, op, in: args });
    });
  }

  close() {
    this.#process.stdin.end();
  }

  #send(line) {
    this.#process.stdin.write(JSON.stringify(line) + '\n');
  }
}

function onEvent(event) {
  if (event.event === 'Question') {
    console.log('pregunta:', event.text);
    return true;
  }
  if (event.event === 'ReceiveOutputs' && event.Outputs) console.log('salida:', event.Outputs);
  return undefined;
}

const [database, program = 'qvn'] = process.argv.slice(2);
const bridge = new Bridge(program, onEvent);
try {
  const open = { ConnectionString: `Provider=SQLite;Data Source=${database}` };
  const { result: shop } = await bridge.call('Connection.Open', open);
  const { result: ambiente } = await bridge.call('Ambiente.New', { Conexion: shop });
  const { result: goesOn } = await bridge.call('Question', { strMensaje: '¿Recalcular el documento 1007?' });
  if (goesOn) await bridge.call('ActualizaSaldo', { nCobranza: 1007, Ambiente: ambiente });
  const strSQL = 'SELECT saldo, estado FROM cobranza WHERE cobranza = 1007';
  const { result: rows } = await bridge.call('FastRst', { strSQL, Connection: shop });
  const [[balance, state]] = (await bridge.call('Recordset.GetRows', { this: rows })).result;
  console.log('saldo:', balance.value, state);
  const words = { Numero: balance.value, Leyenda: 'M.N.', bolDecimales: true, strMoneda: 'PESOS' };
  console.log('letra:', (await bridge.call('PonLetra', words)).result);
  const { result: console_ } = await bridge.call('DOSOutputs.New');
  await bridge.call('DOSOutputs.ExecuteCommand', { this: console_, CommandLine: 'printf listo' });
  await bridge.call('LastRec', { strTabla: 'no_hay', Connection: shop }).catch((failure) => {
    console.log('error:', failure.number);
  });
} finally {
  bridge.close();
}
