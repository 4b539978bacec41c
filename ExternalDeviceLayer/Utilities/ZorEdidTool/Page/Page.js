// What moves on the page of zoredid: marks between bytes and fields, keys, the table of timings, light and dark.
// Without it, everything can still be read. Texts of the image are only ever copied as text.
"use strict";
(() => {
  const all = (selector, root = document) => [...root.querySelectorAll(selector)];
  const one = (selector, root = document) => root.querySelector(selector);

  document.documentElement.classList.add("live");

  // ---- Light and dark ----

  const theme = one("#theme");
  const dark = [...document.styleSheets[0].cssRules].find(rule => rule.media?.mediaText.includes("dark"));
  const isDark = () => getComputedStyle(document.documentElement).colorScheme === "dark";
  const nameTheme = () => { theme.textContent = isDark() ? "Light" : "Dark"; };
  nameTheme();
  theme.addEventListener("click", () => {
    dark.media.mediaText = isDark() ? "not all" : "screen"; // paper stays light
    nameTheme();
  });
  matchMedia("(prefers-color-scheme: dark)").addEventListener("change", nameTheme);

  // The one of a group that the tab key reaches.
  const rove = (group, item) => {
    for (const other of group) if (other.tabIndex === 0) other.tabIndex = -1;
    item.tabIndex = 0;
  };

  // Scrolls a box only, never the page.
  const show = (box, item) => {
    const outer = box.getBoundingClientRect(), inner = item.getBoundingClientRect();
    if (box.scrollHeight <= box.clientHeight) return;
    if (inner.top < outer.top) box.scrollTop -= outer.top - inner.top + 8;
    else if (inner.bottom > outer.bottom)
      box.scrollTop += Math.min(inner.bottom - outer.bottom + 8, inner.top - outer.top);
  };

  // ---- Bytes and fields ----

  for (const view of all(".view")) {
    const key = view.dataset.key;
    const cells = all("[role=gridcell]", view), items = all("[role=treeitem]", view);
    const said = one(".said", view), tree = one("[role=tree]", view), grids = one(".grids", view);
    const isGroup = item => item.hasAttribute("aria-expanded");
    const above = item => item.parentElement.parentElement.previousElementSibling?.closest("[role=treeitem]");
    const runs = new Map(), leaves = cells.map(() => []);
    for (const item of items) {
      runs.set(item, item.dataset.p.split(" ").map(run => run.split("+").map(Number)));
      if (isGroup(item)) continue;
      for (const [start, length] of runs.get(item))
        for (let i = start; i < start + length; ++i)
          if (leaves[i] && !leaves[i].includes(item)) leaves[i].push(item);
    }
    for (const element of [...cells, ...items]) element.setAttribute("aria-selected", "false");
    const offset = cell => Number(cell.id.slice(key.length));
    const placeOf = cell => "0x" + offset(cell).toString(16).padStart(2, "0");
    for (const cell of cells) {
      const names = leaves[offset(cell)].map(item => one(".name", item).textContent);
      const said = cell.getAttribute("aria-label") || cell.textContent; // the other image's byte is there
      cell.setAttribute("aria-label", [placeOf(cell) + ": " + said, ...names].join(", "));
    }

    let marked = [];
    const mark = next => {
      for (const element of marked) {
        element.classList.remove("on");
        element.setAttribute("aria-selected", "false");
      }
      marked = next;
      for (const element of marked) {
        element.classList.add("on");
        element.setAttribute("aria-selected", "true");
      }
    };
    const line = parts => {
      const p = document.createElement("p");
      for (const [name, text] of parts) {
        if (!text) continue;
        const span = document.createElement("span");
        span.className = name;
        span.textContent = text + " ";
        p.append(span);
      }
      return p;
    };
    const describe = item => {
      const part = name => one("." + name, item)?.textContent || "";
      const ahead = above(item) ? one(".name", above(item)).textContent + ": " : "";
      return [["name", ahead + part("name")], ["value", part("value")], ["place", part("place")],
              ["other", part("other")], ["remark", part("remark")]];
    };
    // Opens what an item lies in; the search may have hidden it.
    const open = item => {
      item.parentElement.hidden = false;
      for (let up = above(item); up; up = above(up)) {
        up.setAttribute("aria-expanded", "true");
        up.parentElement.hidden = false;
      }
    };
    const bytesOf = item => runs.get(item).flatMap(([start, length]) => cells.slice(start, start + length));
    const markByte = cell => {
      const own = leaves[offset(cell)];
      mark([...new Set([cell, ...own.flatMap(bytesOf)]), ...own]);
      const bits = parseInt(cell.textContent, 16).toString(2).padStart(8, "0");
      const head = line([["name", "Byte " + placeOf(cell) + ":"], ["value", cell.textContent], ["place", bits]]);
      said.replaceChildren(head, ...own.map(item => line(describe(item))));
      own.forEach(open);
      if (own.length) show(tree, own[0]);
    };
    const markField = item => {
      const bytes = bytesOf(item);
      mark([item, ...new Set(bytes)]);
      said.replaceChildren(line(describe(item)));
      if (bytes.length) show(grids, bytes[0]);
    };
    const follow = target => {
      const cell = target.closest("[role=gridcell]"), item = target.closest("[role=treeitem]");
      if (cell) markByte(cell);
      else if (item) markField(item);
    };
    let held = null; // what the focus is on; pointing elsewhere is for the moment
    view.addEventListener("focusin", event => {
      const target = event.target;
      if (!target.matches("[role=gridcell], [role=treeitem]")) return;
      held = target;
      rove(target.matches("[role=gridcell]") ? cells : items, target);
      follow(target);
    });
    view.addEventListener("pointerover", event => {
      if (event.pointerType === "mouse") follow(event.target);
    });
    one(".panes", view).addEventListener("pointerleave", () => { if (held) follow(held); });
    view.addEventListener("click", event => {
      const item = event.target.closest("[role=treeitem]");
      if (item && isGroup(item) && event.target.matches(".name")) toggle(item);
      (event.target.closest("[role=gridcell]") || item)?.focus({ preventScroll: true });
    });

    const toggle = (item, value = item.getAttribute("aria-expanded") !== "true") =>
      item.setAttribute("aria-expanded", String(value));
    const go = item => {
      if (!item) return;
      item.focus({ preventScroll: true });
      show(item.matches("[role=gridcell]") ? grids : tree, item);
      item.scrollIntoView({ block: "nearest" });
    };
    const gridKeys = (cell, event) => {
      const at = offset(cell), first = at - at % 16;
      const steps = { ArrowLeft: at - 1, ArrowRight: at + 1, ArrowUp: at - 16, ArrowDown: at + 16,
                      Home: event.ctrlKey ? 0 : first, End: event.ctrlKey ? cells.length - 1 : first + 15,
                      PageUp: at - 128, PageDown: at + 128 };
      if (!(event.key in steps)) return;
      event.preventDefault();
      go(cells[Math.min(steps[event.key], event.key === "End" ? cells.length - 1 : Infinity)]);
    };
    const order = new Map(items.map((item, at) => [item, at]));
    const isShown = item => item.offsetParent !== null;
    // The next item in a direction that shows.
    const next = (at, step) => {
      while (items[at] && !isShown(items[at])) at += step;
      return items[at];
    };
    const treeKeys = (item, event) => {
      const at = order.get(item), expanded = item.getAttribute("aria-expanded");
      const steps = {
        ArrowUp: () => go(next(at - 1, -1)), ArrowDown: () => go(next(at + 1, 1)),
        Home: () => go(next(0, 1)), End: () => go(next(items.length - 1, -1)),
        ArrowRight: () => {
          if (expanded === "false") toggle(item, true);
          else if (expanded) go(next(at + 1, 1));
        },
        ArrowLeft: () => (expanded === "true" ? toggle(item, false) : go(above(item))),
        Enter: () => { if (expanded) toggle(item); },
      };
      if (!(event.key in steps)) return;
      event.preventDefault();
      steps[event.key]();
    };
    view.addEventListener("keydown", event => {
      if (event.target.matches("[role=gridcell]")) gridKeys(event.target, event);
      else if (event.target.matches("[role=treeitem]")) treeKeys(event.target, event);
    });

    // A field that is found shows with the groups that it lies in, and a group with all that it holds. "0x36" finds the
    // fields of that byte.
    const none = one(".none", view);
    one(".find input", view).addEventListener("input", event => {
      const wanted = event.target.value.trim().toLowerCase();
      const at = /^0x[0-9a-f]+$/.test(wanted) ? leaves[Number(wanted)] : undefined;
      const fits = item => at?.includes(item) ||
        (item.textContent + " " + (item.dataset.f || "")).toLowerCase().includes(wanted);
      for (const item of items) item.parentElement.hidden = wanted !== "";
      let found = 0;
      for (const item of items) {
        if (!fits(item)) continue;
        for (const inner of all("li", item.parentElement)) inner.hidden = false;
        open(item);
        ++found;
      }
      none.textContent = found ? "" : "No field has this text.";
      const first = items.find(item => !item.parentElement.hidden);
      if (first) rove(items, first);
    });
  }

  // ---- Timings ----

  const table = one("#table");
  if (!table) return;
  const body = one("tbody", table), rows = all("tr", body), heads = all("thead th", table);
  const pictures = all(".picture");
  // The chosen timing's picture, unless the filter hides its row.
  const draw = () => {
    const radio = one("input:checked", table), row = radio?.closest("tr");
    if (!radio) return; // an index of monitors has no pictures
    for (const other of rows) other.classList.toggle("chosen", other === row);
    for (const picture of pictures) picture.hidden = row.hidden || picture.id !== "p" + radio.value;
  };
  for (const head of heads) {
    const button = document.createElement("button");
    button.type = "button";
    button.append(...head.childNodes);
    head.append(button);
    head.setAttribute("aria-sort", "none");
  }
  const filter = one("#filter"), list = one("#list"), count = one("#count");
  // Neither blanks nor case count, and x is as good as the multiplication sign. Cells stay apart.
  const pack = text => text.toLowerCase().replaceAll("\u00d7", "x").replace(/\s+/g, "");
  const texts = rows.map(row => [...row.cells].map(cell => pack(cell.textContent)).join("|"));
  const numbers = new Map(rows.map((row, at) => [row, at])); // sorting moves rows
  const sift = () => {
    const whole = pack(filter.value);
    const words = filter.value.replace(/(\d)\s*[x\u00d7]\s*(?=\d)/gi, "$1x").replace(/hz|@/gi, " ").split(/\s+/).map(pack);
    const asOne = texts.some(text => text.includes(whole));
    let shown = 0;
    for (const row of rows) {
      const text = texts[numbers.get(row)];
      const fits = asOne ? text.includes(whole) : words.every(word => text.includes(word));
      row.hidden = !fits || (list.value !== "" && !row.dataset.list.split(" ").includes(list.value));
      shown += row.hidden ? 0 : 1;
    }
    count.textContent = shown + " of " + rows.length;
    draw();
  };
  const value = (row, column) => {
    const cell = row.cells[column];
    return "v" in cell.dataset ? Number(cell.dataset.v) : cell.textContent;
  };
  heads.forEach((head, column) => one("button", head).addEventListener("click", () => {
    const way = head.getAttribute("aria-sort") === "ascending" ? -1 : 1;
    for (const other of heads) other.setAttribute("aria-sort", "none");
    head.setAttribute("aria-sort", way > 0 ? "ascending" : "descending");
    const compare = (a, b) => (typeof a === "number" ? a - b : a.localeCompare(b));
    const isUnread = row => row.dataset.list === "unread"; // of an index; these stay last
    rows.sort((a, b) => isUnread(a) - isUnread(b) ||
      (isUnread(a) ? 0 : way * compare(value(a, column), value(b, column))));
    body.append(...rows);
  }));
  table.addEventListener("change", draw);
  filter.addEventListener("input", sift);
  list.addEventListener("change", sift);
  const start = pictures.length && (rows.find(row => row.textContent.includes("preferred")) || rows[0]);
  if (start) {
    one("input", start).checked = true;
    show(table.parentElement, start);
  }
  sift();
})();
