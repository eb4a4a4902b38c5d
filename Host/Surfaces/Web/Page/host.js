// Talks to the host. The token arrives in the fragment, which no browser sends anywhere, and stays in this tab: a cookie
// would reach every server on this machine's loopback address.

const kToken = 'token';
if (location.hash.length > 1 && location.hash !== '#canvas') {
  sessionStorage.setItem(kToken, location.hash.slice(1));
  history.replaceState(null, '', location.pathname + location.search);
}

/** What the host refused, in its own words. */
export class Refusal extends Error {}

async function call(path, body, signal) {
  const headers = { Authorization: `Bearer ${sessionStorage.getItem(kToken) ?? ''}` };
  if (body) headers['Content-Type'] = 'application/json';
  const options = { headers, signal, method: body ? 'POST' : 'GET', credentials: 'omit', redirect: 'error' };
  if (body) options.body = JSON.stringify(body);
  const response = await fetch(path, options).catch((error) => {
    throw signal?.aborted ? error : new Refusal('The host does not answer. `quorvel-host board` opens the board anew.');
  });
  if (response.ok) return response;
  const { error } = await response.json().catch(() => ({}));
  throw new Refusal(error ?? `The host answered ${response.status}.`);
}

const pathOf = (path, query) => {
  const words = new URLSearchParams(query).toString();
  return words ? `${path}?${words}` : path;
};

/** @returns {Promise<any>} the answer to a question; `query` becomes the path's query. */
export const get = async (path, query = {}, signal) => (await call(pathOf(path, query), null, signal)).json();
/** @returns {Promise<any>} the answer to a request that changes something. */
export const post = async (path, body = {}) => (await call(path, body)).json();
export const blob = async (path, query = {}) => (await call(pathOf(path, query))).blob();

/**
 * Hears events until the page goes; a lost stream is opened again after 0.5 s, doubling to 8 s. Read by `fetch`, because
 * an EventSource sends no header.
 * @param {(name: string, data: any) => void} onEvent
 * @param {(open: boolean) => void} onOpen
 */
export async function listen(onEvent, onOpen) {
  for (let wait = 500; ; wait = Math.min(wait * 2, 8000)) {
    try {
      const reader = (await call('events')).body.pipeThrough(new TextDecoderStream()).getReader();
      onOpen(true);
      wait = 250;
      for (let text = ''; ;) {
        const { value, done } = await reader.read();
        if (done) break;
        const blocks = (text + value).split('\n\n');
        text = blocks.pop();
        for (const block of blocks) {
          const name = /^event: (.*)$/m.exec(block)?.[1];
          const data = /^data: (.*)$/m.exec(block)?.[1];
          if (name && data) onEvent(name, JSON.parse(data));
        }
      }
    } catch { /* the host went away; the loop tries again */ }
    onOpen(false);
    await new Promise((resume) => setTimeout(resume, wait));
  }
}
