// Elements without markup in strings: what a document brings can never become markup.

/**
 * @example make('button', { class: 'icon', 'aria-label': 'Close', onclick: close }, icon('close'))
 */
export function make(name, attributes = {}, ...children) {
  const element = document.createElement(name);
  if (name === 'button') element.type = 'button';
  for (const [key, value] of Object.entries(attributes)) {
    if (value === undefined || value === null || value === false) continue;
    if (key.startsWith('on')) element.addEventListener(key.slice(2), value);
    else element.setAttribute(key, value === true ? '' : value);
  }
  element.append(...children.filter((child) => child !== undefined && child !== null && child !== false));
  return element;
}

const kSvg = 'http://www.w3.org/2000/svg';

export function icon(name) {
  const svg = document.createElementNS(kSvg, 'svg');
  const use = document.createElementNS(kSvg, 'use');
  use.setAttribute('href', `#i-${name}`);
  svg.setAttribute('aria-hidden', 'true');
  svg.append(use);
  return svg;
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
  picture.setAttribute('aria-hidden', 'true');
  (holder.shadowRoot ?? holder.attachShadow({ mode: 'open' })).replaceChildren(document.importNode(picture, true));
}

export const say = (text) => { document.getElementById('said').textContent = text; };

/** A message at the foot of the page for some seconds, with something to do about it. */
export function toast(text, action) {
  const box = make('div', {}, make('span', {}, text));
  const gone = () => box.remove();
  if (action) box.append(make('button', { onclick: () => { gone(); action.run(); } }, action.name));
  box.append(make('button', { class: 'icon bare', 'aria-label': 'Close the message', onclick: gone }, icon('close')));
  document.getElementById('toasts').append(box);
  say(text);
  setTimeout(gone, 8000);
}

/** Runs what may be refused; a refusal is told to the person. */
export const attempt = async (work) => {
  try { return await work(); } catch (error) { if (error.name !== 'AbortError') toast(error.message); return undefined; }
};
