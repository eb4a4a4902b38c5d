// The whole page by keyboard. Letters act only when no text field has the focus.

import { neighbour } from './grid.js';
import { make, say } from './dom.js';
import { set } from './settings.js';
import * as menu from './menu.js';

const kRegions = ['.bar', '#tools', '#gallery', '#canvas'];
const kArrows = { ArrowLeft: [-1, 0], ArrowRight: [1, 0], ArrowUp: [0, -1], ArrowDown: [0, 1] };
const kHelp = [['F6', 'next region'], ['Arrows', 'from card to card'], ['Enter', 'open the link'], ['Space', 'select'], ['M', 'move, then arrows, Enter or Esc'],
  ['1 2 3', 'small, medium, large'], ['Shift F10', 'menu'], ['E', 'edit'], ['R', 'reload'], ['Del', 'remove'], ['Ctrl Z', 'undo a removal'],
  ['A', 'gallery'], ['/', 'search'], ['P', 'hide amounts'], ['L', 'light or dark'], ['?', 'these keys'], ['Esc', 'close']];

const isTyping = (target) => target.matches?.('input:not([type=radio]):not([type=color]), select, textarea');

function nextRegion(step) {
  const regions = kRegions.map((name) => document.querySelector(name)).filter((region) => region?.offsetParent !== null);
  const at = regions.findIndex((region) => region.contains(document.activeElement));
  const region = regions.at((at + step) % regions.length);
  (region.querySelector('a[href], button:not(:disabled), input:checked, input:not([type=radio])') ?? region).focus();
}

export function showHelp() {
  const dialog = document.getElementById('keys');
  dialog.replaceChildren(make('div', { class: 'stack' }, make('h2', { id: 'keysTitle' }, 'Keys'),
    make('dl', { class: 'keys' }, ...kHelp.flatMap(([key, what]) => [make('dt', {}, make('kbd', {}, key)), make('dd', {}, what)])),
    make('div', { class: 'ends' }, make('button', { onclick: () => dialog.close() }, 'Close'))));
  dialog.showModal();
}

/** Moves a card by arrows until Enter keeps it or Esc puts it back. */
export function moveByKeys(board, card) {
  const before = { column: card.placement.column, row: card.placement.row };
  let cell = { ...before };
  card.element.classList.add('moving');
  say(`Moving ${card.title}. Arrows move it, Enter keeps it, Escape puts it back.`);
  const end = () => {
    card.element.classList.remove('moving');
    removeEventListener('keydown', onkey, true);
  };
  const onkey = (event) => {
    const arrow = kArrows[event.key];
    if (arrow) {
      cell = board.clampCell({ column: cell.column + arrow[0], row: cell.row + arrow[1] }, card.placement.family);
      board.previewMove(card, cell);
      say(`${card.title}, column ${cell.column + 1}, row ${cell.row + 1}`);
    } else if (event.key === 'Enter') {
      end();
      board.move(card.placement.id, cell);
    } else if (event.key === 'Escape' || event.key === 'Tab') {
      end();
      board.layOut();
      say(`${card.title} stays where it was.`);
    } else return;
    event.preventDefault();
    event.stopPropagation();
    card.focus();
  };
  addEventListener('keydown', onkey, true);
}

function onCard(board, card, event) {
  const arrow = kArrows[event.key];
  if (arrow) {
    const rightToLeft = document.dir === 'rtl' ? -1 : 1;
    const next = neighbour(board.placed, card.shown, arrow[0] * rightToLeft, arrow[1]);
    if (next) board.cards.get(next.id).focus();
    return true;
  }
  const size = ['systemSmall', 'systemMedium', 'systemLarge'][Number(event.key) - 1];
  const actions = {
    ' ': () => board.select(card.placement.id), e: () => board.edit(card), r: () => board.reload(card), m: () => moveByKeys(board, card),
    Delete: () => board.remove(card), ContextMenu: () => board.openMenu(card, card.more),
  };
  const action = size ? () => board.resize(card, size) : event.key === 'F10' && event.shiftKey ? actions.ContextMenu : actions[event.key];
  if (!action || (event.key === ' ' && event.target.localName === 'button')) return false;
  action();
  return true;
}

function onPage(board, event) {
  const actions = {
    F6: () => nextRegion(event.shiftKey ? -1 : 1), a: () => board.toggleGallery(), '/': () => board.search(), p: () => board.toggleHidden(),
    l: () => set({ appearance: document.documentElement.dataset.appearance === 'dark' ? 'light' : 'dark' }), '?': showHelp, Escape: () => board.select(''),
  };
  const undo = event.key === 'z' && (event.ctrlKey || event.metaKey);
  const action = undo ? () => board.undo() : !event.ctrlKey && !event.metaKey && !event.altKey && actions[event.key];
  if (action) action();
  return Boolean(action);
}

export function build(board) {
  addEventListener('keydown', (event) => {
    if (event.defaultPrevented || document.querySelector('dialog[open]') || menu.isOpen()) return;
    if (isTyping(event.target) && event.key !== 'F6') {
      if (event.key === 'Escape') event.target.blur();
      return;
    }
    if (event.target.type === 'radio' && event.key.startsWith('Arrow')) return;
    const card = board.cards.get(event.target.closest?.('.card')?.dataset.id);
    const modified = event.ctrlKey || event.metaKey || event.altKey;
    if ((card && !modified && onCard(board, card, event)) || onPage(board, event)) event.preventDefault();
  });
}
