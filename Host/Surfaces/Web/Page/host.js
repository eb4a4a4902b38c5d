// Talks to the host. The token arrives in the fragment, which no browser sends anywhere, and stays in this tab: a cookie
// would reach every server on this machine's loopback address.

if (location.hash.length > 9) {
  sessionStorage.token = location.hash.slice(1);
  history.replaceState(null, '', location.pathname + location.search);
}

async function call(path, query, body, signal) {
  const words = new URLSearchParams(query);
  const headers = { Authorization: `Bearer ${sessionStorage.token}`, ...(body && { 'Content-Type': 'application/json' }) };
  const sent = body ? { method: 'POST', body: JSON.stringify(body) } : {};
  const options = { headers, signal, ...sent, credentials: 'omit', redirect: 'error' };
  const response = await fetch(words.size ? `${path}?${words}` : path, options).catch((error) => {
    throw signal?.aborted ? error : new Error('The host does not answer. `quorvel-host board` opens the board anew.');
  });
  if (response.ok) return response;
  const { error } = await response.json().catch(() => ({}));
  throw new Error(error ?? `The host answered ${response.status}.`);
}

/** The answer to a question. */
export const get = async (path, query, signal) => (await call(path, query, null, signal)).json();
/** The answer to a request that changes something. */
export const post = async (path, body) => (await call(path, {}, body)).json();
export const blob = async (path, query) => (await call(path, query)).blob();

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
          const [, name, data] = /^event: (.*)\ndata: (.*)$/.exec(block) ?? [];
          if (name) onEvent(name, JSON.parse(data));
        }
      }
    } catch { /* the host went away; the loop tries again */ }
    onOpen(false);
    await new Promise((resume) => setTimeout(resume, wait));
  }
}
