// A resident host of one's own: the real programs on a container, configuration and socket in a scratch folder.
//
//     const host = await Host.start();
//     const page = await browser.open(await host.board());
//     await host.end();

import { execFileSync } from 'node:child_process';
import { mkdirSync, mkdtempSync, readdirSync, readFileSync, readlinkSync, renameSync, rmSync, writeFileSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { dirname, join, resolve } from 'node:path';
import { fileURLToPath } from 'node:url';
import { start, until } from './browser.mjs';

const kHere = dirname(fileURLToPath(import.meta.url));
export const binaries = process.env.QUORVEL_BINARIES ?? resolve(kHere, '../../build/bin');

export class Host {
  /** @param placements as in placements.json; absent: one of each widget, as on a first start */
  static async start({ placements, document, tz = 'UTC', options = [] } = {}) {
    const host = new Host();
    host.folder = mkdtempSync(join(tmpdir(), 'board-host-'));
    for (const name of ['run', 'config/quorvel-host', 'state', 'data', 'home', 'container', 'bin']) mkdirSync(join(host.folder, name), { recursive: true });
    host.environment = { PATH: `${host.folder}/bin:/usr/bin:/bin`, HOME: `${host.folder}/home`, XDG_RUNTIME_DIR: `${host.folder}/run`, XDG_CONFIG_HOME: `${host.folder}/config`,
      XDG_STATE_HOME: `${host.folder}/state`, XDG_DATA_HOME: `${host.folder}/data`, LANG: 'en_US.UTF-8', TZ: tz,
      DBUS_SYSTEM_BUS_ADDRESS: 'unix:path=/nonexistent', DBUS_SESSION_BUS_ADDRESS: 'unix:path=/nonexistent' };
    host.program('xdg-mime', 'echo app.desktop');
    host.program('xdg-open', `echo "$1" >>${host.folder}/opened`);
    host.write(document ?? host.sample());
    if (placements) host.place(placements);
    host.options = ['--container', `${host.folder}/container`, ...options];
    await host.run();
    return host;
  }

  program(name, line) { writeFileSync(join(this.folder, 'bin', name), `#!/bin/sh\n${line}\n`, { mode: 0o755 }); }
  opened() { try { return readFileSync(join(this.folder, 'opened'), 'utf8').split('\n').filter(Boolean); } catch { return []; } }

  place(placements) {
    writeFileSync(join(this.folder, 'config/quorvel-host/placements.json'), JSON.stringify({ version: 1, hidden: false, desktop: false, look: 'paper', nextId: placements.length + 1, placements }));
  }
  placements() { return JSON.parse(readFileSync(join(this.folder, 'config/quorvel-host/placements.json'), 'utf8')).placements; }

  sample(...options) { return JSON.parse(this.ask('sample', ...options)); }
  /** Replaces the document as applications do: a new file is renamed over it. */
  write(document) {
    const file = join(this.folder, 'container/widget-snapshot.json');
    writeFileSync(`${file}.new`, typeof document === 'string' ? document : JSON.stringify(document));
    renameSync(`${file}.new`, file);
  }

  async run() {
    this.process = start(join(binaries, 'quorvel-hostd'), this.options, { env: this.environment, stdio: ['ignore', 'ignore', 'pipe'] });
    this.log = '';
    this.process.stderr.on('data', (text) => { this.log += text; });
    this.ended = new Promise((resolve) => this.process.once('exit', (code, signal) => resolve(signal ?? code)));
    await until(() => { try { return this.ask('status'); } catch { return false; } }, 'the host answers');
  }

  ask(...words) { return execFileSync(join(binaries, 'quorvel-host'), words, { env: this.environment, encoding: 'utf8', stdio: ['ignore', 'pipe', 'pipe'] }); }
  board() { return this.ask('board', '--no-open').trim(); }

  async isLive(count) { return until(() => { const { placements } = JSON.parse(this.ask('status', '--json')); return placements.length >= count && placements.every(({ state }) => state === 'live'); }, 'all live'); }

  #children(pid) {
    return readdirSync(`/proc/${pid}/task`).flatMap((task) => readFileSync(`/proc/${pid}/task/${task}/children`, 'utf8').split(' ').filter(Boolean).map(Number));
  }
  /** The extension's process, a child of the process that guards it. */
  extension() { return this.#children(this.process.pid).flatMap((guard) => this.#children(guard))[0]; }
  killExtension() { process.kill(this.extension(), 'SIGKILL'); }

  memory() { return Number(/^Rss:\s+(\d+)/m.exec(readFileSync(`/proc/${this.process.pid}/smaps_rollup`, 'utf8'))[1]); }
  descriptors() { return readdirSync(`/proc/${this.process.pid}/fd`).length; }
  /** The local addresses that it listens on, as /proc/net/tcp writes them. */
  listening() {
    const folder = `/proc/${this.process.pid}/fd`;
    const sockets = new Set(readdirSync(folder).map((name) => { try { return /^socket:\[(\d+)\]$/.exec(readlinkSync(join(folder, name)))?.[1]; } catch { return undefined; } }));
    return ['tcp', 'tcp6'].flatMap((table) => readFileSync(`/proc/${this.process.pid}/net/${table}`, 'utf8').split('\n').map((line) => line.trim().split(/\s+/)))
      .filter((fields) => fields[3] === '0A' && sockets.has(fields[9])).map((fields) => fields[1]);
  }

  /** How often any of its threads has been put on a processor. */
  wakeups() {
    const tasks = `/proc/${this.process.pid}/task`;
    return readdirSync(tasks).flatMap((task) => [...readFileSync(`${tasks}/${task}/status`, 'utf8').matchAll(/ctxt_switches:\s+(\d+)/g)]).reduce((sum, [, count]) => sum + Number(count), 0);
  }

  async stop(signal = 'SIGTERM') { this.process.kill(signal); return this.ended; }
  async end() {
    if (this.process.exitCode === null && this.process.signalCode === null) await this.stop();
    rmSync(this.folder, { recursive: true, force: true });
  }
}
