// Elements without markup in strings: what a document brings can never become markup.

export const $ = (selector, root = document) => root.querySelector(selector);
export const all = (selector, root = document) => [...root.querySelectorAll(selector)];

/** What a template of the page holds. */
export const copy = (name) => $(`template#${name}`).content.firstElementChild.cloneNode(true);

/** @example make('button', { type: 'button', onclick: close }, 'Close') */
export function make(name, properties, ...children) {
  const element = Object.assign(document.createElement(name), properties);
  element.append(...children);
  return element;
}

/** Numbers for the style sheet; a style attribute would break the page's policy. */
export function place(element, numbers) {
  for (const [name, value] of Object.entries(numbers)) element.style.setProperty(`--${name}`, value);
}

/** Shows an SVG of the host in a shadow root of its own: ids repeat from picture to picture. */
export function showPicture(holder, text) {
  const picture = new DOMParser().parseFromString(text, 'image/svg+xml').documentElement;
  if (picture.localName !== 'svg') return;
  picture.setAttribute('width', '100%');
  picture.setAttribute('height', '100%');
  (holder.shadowRoot ?? holder.attachShadow({ mode: 'open' })).replaceChildren(picture);
}

export const say = (text) => { $('#said').textContent = text; };

/** A message at the foot of the page for some seconds, with something to do about it; one that stands there is not repeated. */
export function toast(text, name, run) {
  for (const old of all('#toasts > div')) if ($('span', old).textContent === text) old.remove();
  const box = copy('toast');
  const [action, close] = all('button', box);
  const gone = () => box.remove();
  $('span', box).textContent = text;
  action.textContent = name;
  action.hidden = !name;
  action.onclick = () => { gone(); run(); };
  close.onclick = gone;
  $('#toasts').append(box);
  say(text);
  setTimeout(gone, 8000);
}

/** Runs what may be refused; a refusal is told to the person, and answers undefined. */
export async function attempt(work) {
  try { return await work(); } catch (error) { if (error.name !== 'AbortError') toast(error.message); return undefined; }
}
