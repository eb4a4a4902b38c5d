// Moving with the pointer: a drag begins after 4 pixels, so that a click stays a click.

import { make, place } from './dom.js';

const kThreshold = 4;
const swallow = (event) => { event.preventDefault(); event.stopPropagation(); };

/**
 * @param what {board, family, source, drop(cell)}; `board.cellAt(x, y, family)` says which cell lies there, if any
 */
export function startDrag(down, { board, family, source, drop, moving }) {
  if (down.button !== 0 || down.pointerType === 'touch') return;
  let target;
  let cell;
  const move = (event) => {
    const [dx, dy] = [event.clientX - down.clientX, event.clientY - down.clientY];
    if (!target) {
      if (Math.hypot(dx, dy) < kThreshold) return;
      target = make('div', { class: 'target' });
      source.setPointerCapture(down.pointerId);
      board.grid.append(target);
    }
    cell = board.cellAt(event.clientX, event.clientY, family);
    target.hidden = !cell;
    if (cell) place(target, board.boxOf({ ...cell, family }));
    moving?.(dx, dy);
  };
  const end = (event) => {
    source.removeEventListener('pointermove', move);
    source.removeEventListener('pointerup', end);
    source.removeEventListener('pointercancel', end);
    removeEventListener('keydown', escape, true);
    if (!target) return;
    target.remove();
    moving?.();
    // The click that ends a drag follows no link.
    addEventListener('click', swallow, true);
    setTimeout(() => removeEventListener('click', swallow, true), 0);
    if (event.type === 'pointerup' && cell) drop(cell);
  };
  const escape = (event) => { if (event.key === 'Escape' && target) { event.stopPropagation(); end(event); } };
  source.addEventListener('pointermove', move);
  source.addEventListener('pointerup', end);
  source.addEventListener('pointercancel', end);
  addEventListener('keydown', escape, true);
}
