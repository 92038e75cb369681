// A token service of another maker, the emulator of the npm package in the folder that is given, behind TLS.
//   node token_emulator.mjs FOLDER CERTIFICATE KEY
// Makes an account, tells the port and the account's tokens as one line of JSON, and goes on until its input ends.
// The line "revoke" deletes the account, which is answered with "revoked".

import { readFileSync } from 'node:fs';
import { createServer as createPlain } from 'node:http';
import { createServer as createSecure } from 'node:https';
import { createRequire } from 'node:module';
import { createInterface } from 'node:readline';

const [folder, cert, key] = process.argv.slice(2);
const require = createRequire(`${folder}/`);
const { createApp } = require('firebase-tools/lib/emulator/auth/server');

const PROJECT = 'demo-quorvel';
const IDENTITY = '/identitytoolkit.googleapis.com/v1';
const TOKENS = '/securetoken.googleapis.com';

const app = await createApp(PROJECT);

function listen(server) {
    return new Promise((resolve) => server.listen(0, '127.0.0.1', () => resolve(server.address().port)));
}

async function ask(path, body, headers = {}) {
    const answer = await fetch(`http://127.0.0.1:${adminPort}${path}`, {
        method: 'POST',
        headers: { 'Content-Type': 'application/json', ...headers },
        body: JSON.stringify(body),
    });
    if (!answer.ok) throw new Error(`${path}: ${answer.status} ${await answer.text()}`);
    return answer.json();
}

const adminPort = await listen(createPlain(app));
const port = await listen(createSecure({ cert: readFileSync(cert), key: readFileSync(key) }, (request, response) => {
    // The emulator serves every host of the service below one address.
    request.url = TOKENS + request.url;
    app(request, response);
}));

const account = await ask(`${IDENTITY}/accounts:signUp?key=any`, {
    email: 'ada@example.com',
    password: 'correct horse battery',
    returnSecureToken: true,
});
console.log(JSON.stringify({ port, ...account }));

for await (const line of createInterface({ input: process.stdin })) {
    if (line !== 'revoke') continue;
    await ask(`${IDENTITY}/projects/${PROJECT}/accounts:delete`, { localId: account.localId },
        { Authorization: 'Bearer owner' });
    console.log('revoked');
}
process.exit(0);
