// A card's menu: opened by its button, a right click, Shift F10 or the menu key; closed by Esc, with the focus given back.

import { make, place } from './dom.js';

const menu = document.getElementById('menu');
let opener;

export const isOpen = () => !menu.hidden;

/**
 * @param items {name, key?, run, checked?, danger?} or null for a line between groups
 */
export function open(items, anchor, point) {
  opener = anchor;
  menu.replaceChildren(...items.map((item) => item ? make('button', {
    tabindex: -1, role: item.checked === undefined ? 'menuitem' : 'menuitemradio', 'aria-checked': item.checked === undefined ? undefined : String(item.checked),
    class: item.danger ? 'danger' : undefined, 'aria-keyshortcuts': item.key, onclick: () => { close(); item.run(); },
  }, item.name, item.key && make('kbd', { 'aria-hidden': 'true' }, item.key)) : make('hr', { role: 'separator' })));
  menu.hidden = false;
  const box = anchor.getBoundingClientRect();
  const { x, y } = point ?? { x: box.right - menu.offsetWidth, y: box.bottom + 4 };
  place(menu, { x: Math.max(8, Math.min(x, innerWidth - menu.offsetWidth - 8)), y: Math.max(8, Math.min(y, innerHeight - menu.offsetHeight - 8)) });
  menu.querySelector('button').focus();
}

export function close() {
  if (menu.hidden) return;
  const hadFocus = menu.contains(document.activeElement);
  menu.hidden = true;
  if (hadFocus) opener?.focus();
}

menu.addEventListener('keydown', (event) => {
  const items = [...menu.querySelectorAll('button')];
  const at = items.indexOf(document.activeElement);
  const to = { ArrowDown: at + 1, ArrowUp: at - 1, Home: 0, End: -1 }[event.key];
  if (to !== undefined) items.at(to % items.length).focus();
  else if (event.key === 'Escape' || event.key === 'Tab') close();
  else return;
  event.preventDefault();
  event.stopPropagation();
});
document.addEventListener('pointerdown', (event) => { if (!menu.contains(event.target)) close(); });
addEventListener('blur', close);
