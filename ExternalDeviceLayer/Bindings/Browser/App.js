// The app around the page of an image: takes files and texts, asks the library, shows its page in a frame, and sets
// fields. Images are held here, as { name, form, bytes, rest, file }; the library keeps nothing.
"use strict";
(() => {
  const one = selector => document.querySelector(selector);
  const toBytes = text => new TextEncoder().encode(text);
  const toText = bytes => new TextDecoder().decode(bytes);

  // ---- The library ----

  let library = null;
  const bytesAt = (address, size) => new Uint8Array(library.memory.buffer, address, size);

  // What its C library asks of a system: the time. It has no files, and what it prints goes nowhere.
  const failure = 52; // "not supported" of WASI
  const system = {
    clock_time_get: (clock, precision, address) => {
      new DataView(library.memory.buffer).setBigUint64(address, BigInt(Date.now()) * 1000000n, true); // ns
      return 0;
    },
    proc_exit: status => { throw new Error("the library has ended with " + status); },
  };
  const embedded = id => Uint8Array.from(atob(one(id).textContent), character => character.charCodeAt(0));
  const loadLibrary = async () => {
    const code = embedded("#wasm");
    const { instance } = await WebAssembly.instantiate(code, {
      env: { emscripten_notify_memory_growth: () => {} },
      wasi_snapshot_preview1: new Proxy(system, { get: (known, name) => known[name] ?? (() => failure) }),
    });
    library = instance.exports;
    library._initialize();
    // Browsers compile a function at its first call: the first drop finds those of a whole page compiled.
    ask("read", "", embedded("#example"));
    ask("make_page", "1", "", embedded("#example"), "");
  };

  // Calls a function of App.cpp with texts and bytes. Returns its results as bytes; throws a refusal as an Error.
  const ask = (name, ...parts) => {
    if (!library) throw new Error("The library is not loaded yet.");
    for (const part of parts) {
      const bytes = typeof part === "string" ? toBytes(part) : part;
      const address = library.app_add_argument(bytes.length);
      bytesAt(address, bytes.length).set(bytes);
    }
    const count = library["app_" + name]();
    const results = Array.from({ length: Math.abs(count) }, (_, i) =>
      bytesAt(library.app_get_result(i), library.app_get_result_size(i)).slice());
    if (count < 0) throw new Error(toText(results[0]));
    return results;
  };
  const longest = 4 << 20; // bytes, as for the command
  const checkSize = (name, size) => { if (size > longest) throw new Error(name + ": is longer than 4 MiB"); };
  const readImages = (name, content) => {
    checkSize(name, content.length);
    const results = ask("read", name, content);
    const images = [];
    for (let i = 0; i < results.length; i += 4)
      images.push({ name: toText(results[i]), form: toText(results[i + 1]), bytes: results[i + 2],
                    rest: toText(results[i + 3]), file: { bytes: results[i + 2] } }); // as read, or as saved
    return images;
  };

  // ---- What is shown ----

  // One side, or two that are compared: each has the images of a file or a text, and which of them is shown. What an
  // edit or another file changes is made anew, and the sides before it are kept: undoing goes back to them.
  let sides = []; // { images, at }
  const past = []; // { sides, done, place }: what was shown, what was then done in words, the field of an edit
  let field = null; // that of the page that had the focus last: { side, index, name }

  const frame = one("#frame"), start = one("#start");
  const imageOf = side => side.images[side.at];
  const replaceAt = (list, at, item) => list.map((other, i) => (i === at ? item : other));
  const markOf = at => (sides.length > 1 ? "AB"[at] : "");
  const isSame = (one, other) => 
    one === other || (one.length === other.length && one.every((byte, at) => byte === other[at]));
  const isUnsaved = image => !isSame(image.bytes, image.file.bytes);
  // Also those that another image has taken the place of; of each file its last state counts.
  const hasUnsaved = () => {
    const last = new Map();
    for (const state of [...past.map(step => step.sides), sides])
      for (const image of state.flatMap(side => side.images)) last.set(image.file, image);
    return [...last.values()].some(isUnsaved);
  };

  const say = (text, bad = false) => {
    one("#said").textContent = text;
    one("#said").classList.toggle("bad", bad);
  };
  const save = (content, type, name) => {
    const link = document.createElement("a");
    link.href = URL.createObjectURL(new Blob([content], { type }));
    link.download = name;
    link.click();
    setTimeout(() => URL.revokeObjectURL(link.href), 60000);
  };
  // A file's name without its folders and its ending, and without what file systems refuse.
  const nameFile = image => {
    const name = image.name.replace(/.*\//, "").replace(/\.[a-z0-9]{1,4}$/i, "")
      .replace(/[\x00-\x1f\x7f<>:"\\|?*]+/g, "-").replace(/^[\s.]+/, "");
    return [...name].slice(0, 80).join("").replace(/[\s.]+$/, "") || "monitor";
  };
  const saveImage = image => {
    save(image.bytes, "application/octet-stream", nameFile(image) + ".bin");
    image.file.bytes = image.bytes;
    listImages();
  };

  const nameImage = image => image.name + (isUnsaved(image) ? " (not saved)" : "");
  const makeSelect = (images, at) => {
    const made = document.createElement("select");
    made.append(...images.map(image => new Option(nameImage(image))));
    made.selectedIndex = at;
    return made;
  };
  const listImages = () => {
    const held = document.activeElement.id;
    one("#images").replaceChildren(...sides.map((side, at) => {
      const item = document.createElement("li"), image = imageOf(side), mark = markOf(at) && markOf(at) + ": ";
      const button = (id, text, action) => {
        const made = document.createElement("button");
        Object.assign(made, { type: "button", id: id + at, textContent: text });
        made.setAttribute("aria-label", text + " " + mark + image.name);
        made.addEventListener("click", action);
        return made;
      };
      const name = document.createElement("span");
      name.textContent = mark + (side.images.length > 1 ? "" : nameImage(image));
      item.append(name);
      if (side.images.length > 1) {
        const select = makeSelect(side.images, side.at);
        select.id = "in" + at;
        select.setAttribute("aria-label", mark + "which image of the file");
        select.addEventListener("change", () => {
          const chosen = { images: side.images, at: select.selectedIndex };
          change(replaceAt(sides, at, chosen), imageOf(chosen).name + " chosen");
        });
        item.append(select);
      }
      item.append(button("save", "Save", () => saveImage(image)));
      if (sides.length > 1)
        item.append(button("remove", "Remove", () => change([sides[1 - at]], image.name + " removed")));
      return item;
    }));
    if (held) document.getElementById(held)?.focus();
  };
  const nameField = () => {
    one("#edit").textContent = field ? "Edit: " + field.name : "Edit a field";
    one("#undo").disabled = !past.length;
    one("#undo").title = past.length ? "Goes back before: " + past[past.length - 1].done : "Nothing to undo";
  };
  const makePage = numbered => {
    const images = sides.map(imageOf).flatMap(({ name, bytes, rest }) => [name, bytes, rest]);
    return toText(ask("make_page", numbered, ...images)[0]);
  };

  // Asks for the next image above the page, or for the first one; what: "start", "compare" or "" for none.
  let asked = "start";
  const askFor = what => {
    asked = what;
    start.hidden = !what;
    one("#open").setAttribute("aria-expanded", String(what === "start"));
    one("#compare").setAttribute("aria-expanded", String(what === "compare"));
    one("#heading").textContent =
        what === "compare" ? "Compare with which image?" : "What does a monitor say about itself?";
    const others = what === "compare" && sides[0].images.length > 1;
    one("#others").hidden = !others;
    one("#two").hidden = what === "compare";
    if (others) one("#other").replaceChildren(...makeSelect(sides[0].images, 0).options);
    if (others) one("#other").selectedIndex = sides[0].at === 0 ? 1 : 0;
    if (what && sides.length) one("#choose").focus();
  };

  // What had the focus may be hidden or disabled now; browsers differ in what they then call the active element.
  const isFocusLost = () => document.activeElement.offsetParent === null || document.activeElement.disabled;

  // Makes the page anew. back: the field of an edit, which gets the focus; without one the page's head gets it from
  // what goes.
  const show = (back = null) => {
    const top = back ? frame.contentWindow.scrollY : 0;
    const hadFocus = document.activeElement !== document.body;
    field = null;
    askFor(sides.length ? "" : "start");
    one("#tools").hidden = frame.hidden = !sides.length;
    listImages();
    nameField();
    if (!sides.length) return;
    document.title = sides.map(side => imageOf(side).name).join(" and ") + " - zoredid";
    frame.onload = () => {
      const page = frame.contentDocument, head = page.querySelector("h1");
      adopt(page);
      const item = itemOf(back);
      frame.contentWindow.scrollTo(0, top);
      head.tabIndex = -1;
      const isUndoing = document.activeElement.id === "undo" && !isFocusLost(); // perhaps once more
      if (back ? !isUndoing : hadFocus && isFocusLost()) (item || head).focus({ preventScroll: true });
      // Once more when the parts around it are laid out: before, their heights are estimates.
      const reveal = () => item?.scrollIntoView({ block: "nearest" });
      reveal();
      requestAnimationFrame(reveal);
    };
    frame.srcdoc = makePage("1");
  };
  const change = (next, done, place = null) => {
    if (sides.length) past.push({ sides, done, place });
    sides = next;
    show(place);
  };
  const undo = () => {
    if (!past.length) return;
    const step = past.pop();
    sides = step.sides;
    show(step.place);
    say("Undone: " + step.done);
  };

  // Two at once are compared; one joins the first image where that was asked for. False where it was refused.
  const take = (read, leftOut = []) => {
    try {
      const taken = read.map(({ name, content }) => ({ images: readImages(name, content), at: 0 }));
      const next = asked === "compare" ? [sides[0], taken[0]] : taken;
      const replaced = sides.filter(side => !next.includes(side)).map(imageOf).filter(isUnsaved);
      const said = taken.flatMap(({ images }, at) =>
        (images.length > 1 ? [`${images.length} images in ${read[at].name}`] : []));
      said.push(...new Set(taken.map(side => imageOf(side).form).filter(form => form !== "raw image")));
      if (leftOut.length) said.push("left out, for two are compared at most: " + leftOut.join(", "));
      if (replaced.length)
        said.push(`edits of ${replaced.map(image => image.name).join(" and ")} are not saved: Undo brings them back`);
      if (!sides.length) said.push("to edit a field, double-click it, or press Enter on it");
      change(next, taken.map(side => imageOf(side).name).join(" and ") + " opened");
      say(said.join("; "));
      return true;
    } catch (error) {
      say(error.message, true);
      return false;
    }
  };
  const takeFiles = async given => {
    const files = [...given], room = asked === "compare" ? 1 : 2; // the list itself is emptied after the event
    try {
      take(await Promise.all(files.slice(0, room).map(async file => {
        checkSize(file.name, file.size);
        return { name: file.name, content: new Uint8Array(await file.arrayBuffer()) };
      })), files.slice(room).map(file => file.name));
    } catch (error) {
      say(error.message, true);
    }
  };
  const takeText = text => {
    if (text.trim()) return take([{ name: "pasted", content: text }]);
    say("The text is empty.", true);
    return false;
  };

  // ---- The page in its frame ----

  const schemeOf = root => root.defaultView.getComputedStyle(root.documentElement).colorScheme;
  const itemOf = place => place && frame.contentDocument.querySelectorAll(".view")[place.side]
    ?.querySelector(`[data-i="${place.index}"]`);
  const placeOf = item => item && !item.hasAttribute("aria-expanded") && item.dataset.i !== undefined && {
    side: item.closest(".view").dataset.key === "a" ? 0 : 1, index: item.dataset.i,
    name: item.querySelector(".name").textContent };
  // The fields of a byte, whose id is the letter of its image and its offset.
  const fieldsOf = cell => {
    const offset = Number(cell.id.slice(1));
    const holds = run => {
      const [first, length] = run.split("+").map(Number);
      return first <= offset && offset < first + length;
    };
    return [...cell.closest(".view").querySelectorAll("[role=treeitem]:not([aria-expanded])")]
      .filter(item => item.dataset.p.split(" ").some(holds));
  };
  // A field, or that of a byte. Of a byte with several fields the first one gets the focus, to choose from there.
  const editAt = target => {
    const cell = target.closest("[role=gridcell]"), item = target.closest("[role=treeitem]");
    const items = cell ? fieldsOf(cell) : [item];
    if (items.length > 1) {
      items[0].focus();
      say(`The byte has ${items.length} fields: the arrow keys choose one, Enter edits it.`);
      return true;
    }
    return edit(placeOf(items[0]));
  };

  let leaving = 0;
  // Drops, pastes and keys arrive wherever the pointer or the focus is.
  const listen = root => {
    root.addEventListener("dragover", event => {
      event.preventDefault();
      document.body.classList.add("over");
      clearTimeout(leaving); // leaving one element is entering another; outside, no more of these events come
      leaving = setTimeout(() => document.body.classList.remove("over"), 500);
    });
    root.addEventListener("drop", event => {
      event.preventDefault();
      document.body.classList.remove("over");
      if (event.dataTransfer.files.length) takeFiles(event.dataTransfer.files);
      else takeText(event.dataTransfer.getData("text/plain"));
    });
    root.addEventListener("paste", event => {
      if (event.target.closest?.("input, textarea")) return;
      if (event.clipboardData.files.length) takeFiles(event.clipboardData.files);
      else takeText(event.clipboardData.getData("text/plain"));
    });
    root.addEventListener("keydown", event => {
      const isUndo = (event.ctrlKey || event.metaKey) && !event.shiftKey && !event.altKey && event.key === "z";
      if (!isUndo || dialog.open || event.target.closest?.("input, textarea")) return;
      event.preventDefault();
      undo();
    });
  };
  const adopt = page => {
    listen(page);
    const theme = page.querySelector("#theme");
    if (schemeOf(page) !== schemeOf(document)) theme.click();
    theme.addEventListener("click", () => { darkRule.media.mediaText = schemeOf(page) === "dark" ? "screen" : "not all"; });
    page.addEventListener("focusin", event => {
      const place = placeOf(event.target.closest("[role=treeitem]"));
      if (!place) return;
      field = place;
      nameField();
    });
    page.addEventListener("dblclick", event => editAt(event.target));
    page.addEventListener("keydown", event => {
      if ((event.key === "Enter" || event.key === "F2") && editAt(event.target)) event.preventDefault();
    });
    // The address of a part would be looked for in the file of the app.
    page.addEventListener("click", event => {
      const link = event.target.closest("a[href^='#']");
      if (!link) return;
      event.preventDefault();
      const part = page.getElementById(link.hash.slice(1));
      part.scrollIntoView();
      part.tabIndex = -1;
      part.focus({ preventScroll: true });
    });
  };
  const darkRule = [...document.styleSheets[0].cssRules].find(rule => rule.media?.mediaText.includes("dark"));

  // ---- Fields ----

  const dialog = one("#editing");
  let edited = null;
  // False for anything but a field.
  const edit = place => {
    if (!place) return false;
    edited = place;
    const [id, name, value, takes] =
      ask("describe_field", imageOf(sides[place.side]).bytes, place.index).map(toText);
    one("#field").textContent = (markOf(place.side) && markOf(place.side) + ", ") + name;
    one("#id").textContent = id;
    one("#value").value = value;
    one("#takes").hidden = false;
    one("#takes").textContent = takes.charAt(0).toUpperCase() + takes.slice(1);
    one("#refusal").textContent = "";
    dialog.showModal();
    one("#value").select();
    placeDialog();
    return true;
  };
  // Below the field, above it where there is no room.
  const placeDialog = () => {
    const outer = frame.getBoundingClientRect(), inner = itemOf(edited).getBoundingClientRect();
    const own = dialog.getBoundingClientRect(), below = outer.top + inner.bottom + 4;
    const top = below + own.height <= innerHeight ? below : outer.top + inner.top - own.height - 4;
    dialog.style.margin = "0";
    dialog.style.top = Math.max(4, Math.min(top, innerHeight - own.height - 4)) + "px";
    dialog.style.left = Math.max(4, Math.min(outer.left + inner.left, innerWidth - own.width - 4)) + "px";
  };
  one("#setting").addEventListener("submit", event => {
    event.preventDefault();
    const { images, at } = sides[edited.side], image = images[at];
    try {
      const [bytes, note] = ask("set_field", image.bytes, edited.index, one("#value").value);
      const next = replaceAt(images, at, { ...image, bytes });
      dialog.close();
      if (!isSame(bytes, image.bytes)) // both sides may show images of one file
        change(sides.map(side => (side.images === images ? { ...side, images: next } : side)), toText(note), edited);
      say(toText(note));
    } catch (error) {
      one("#refusal").textContent = error.message;
      one("#takes").hidden = true; // the refusal says it, too
      placeDialog();
      one("#value").focus();
    }
  });
  one("#cancel").addEventListener("click", () => dialog.close());
  dialog.addEventListener("close", () => itemOf(edited)?.focus({ preventScroll: true }));
  one("#edit").addEventListener("click", () => {
    if (edit(field)) return;
    frame.contentDocument.querySelector("[role=treeitem]:not([aria-expanded])").focus();
    say("The arrow keys or a click choose a field; Enter, a double click or the button edits it.");
  });
  one("#undo").addEventListener("click", undo);
  addEventListener("beforeunload", event => {
    if (!hasUnsaved()) return;
    event.preventDefault();
    event.returnValue = true; // what older browsers ask for
  });

  // ---- Buttons ----

  one("#choose").addEventListener("click", () => one("#files").click());
  one("#files").addEventListener("change", event => {
    if (event.target.files.length) takeFiles(event.target.files);
    event.target.value = "";
  });
  one("#see").addEventListener("click", () => take([{ name: "example.bin", content: embedded("#example") }]));
  one("#pasting").addEventListener("submit", event => {
    event.preventDefault();
    if (takeText(one("#text").value)) one("#text").value = "";
  });
  one("#open").addEventListener("click", () => askFor(asked === "start" ? "" : "start"));
  one("#compare").addEventListener("click", () => askFor(asked === "compare" ? "" : "compare"));
  one("#compare-other").addEventListener("click", () => {
    const other = { images: sides[0].images, at: one("#other").selectedIndex };
    change([sides[0], other], imageOf(other).name + " opened");
    say("");
  });
  one("#page").addEventListener("click", () =>
    save(makePage(""), "text/html", sides.map(side => nameFile(imageOf(side))).join(" and ") + ".html"));

  listen(document);
  loadLibrary().then(
    () => {
      one("#see").disabled = false;
      document.documentElement.classList.add("ready");
    },
    error => say("This browser does not run the library: " + error.message, true));
})();
