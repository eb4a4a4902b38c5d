// The whole page by keyboard. Letters act only when no text field has the focus.

import { $, all } from './dom.js';
import { kArrows, moveByKeys } from './drag.js';
import { neighbour } from './grid.js';
import { nextPrivacy, set, view } from './view.js';

const kFamilies = ['systemSmall', 'systemMedium', 'systemLarge'];
const isTyping = (target) => target.matches('input:not([type=radio]):not([type=color]), select');

function nextRegion(step) {
  const regions = all('.bar, #tools, #gallery, #canvas, .tabs').filter((region) => region.checkVisibility());
  const at = regions.findIndex((region) => region.contains(document.activeElement));
  const region = regions.at((at + step) % regions.length);
  ($('a[href], button:not(:disabled), :checked', region) ?? region).focus();
}

function onCard(board, card, { key, shiftKey, target }) {
  if (kArrows[key]) {
    const next = neighbour(board.placed, board.placed.find(({ id }) => id === card.id), kArrows[key]);
    return () => board.cards.get(next?.id)?.focus();
  }
  if (kFamilies[key - 1]) return () => board.resize(card, kFamilies[key - 1]);
  if (key === ' ' && target.localName === 'button') return undefined;
  const openMenu = () => board.openMenu(card);
  return {
    ' ': () => board.select(card), e: () => board.edit(card), r: () => card.reload(), m: () => moveByKeys(board, card),
    Delete: () => board.remove(card), ContextMenu: openMenu, F10: shiftKey && openMenu,
  }[key];
}

const onPage = (board, { key, shiftKey }) => ({
  F6: () => nextRegion(shiftKey ? -1 : 1), a: board.toggleGallery, '/': board.search, h: board.toggleHidden, p: nextPrivacy,
  l: () => set({ appearance: view().appearance === 'dark' ? 'light' : 'dark' }),
  '?': () => $('#keys').showModal(),
  Escape: () => board.select(),
}[key]);

export function build(board) {
  addEventListener('keydown', (event) => {
    const { key, target } = event;
    if (event.defaultPrevented || $('dialog[open], #menu:popover-open')) return;
    if (isTyping(target) && key !== 'F6') {
      if (key === 'Escape') target.blur();
      return;
    }
    const isModified = event.ctrlKey || event.metaKey || event.altKey;
    const card = board.cards.get(target.closest('.card')?.dataset.id);
    const action = isModified ? key === 'z' && !event.altKey && board.undo
      : (card && onCard(board, card, event)) || onPage(board, event);
    if (!action) return;
    event.preventDefault();
    action();
  });
}
