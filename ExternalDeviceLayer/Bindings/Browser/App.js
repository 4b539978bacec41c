// The app around the page of an image: takes files and texts, asks the library, shows its page in a frame, and sets
// fields. Images are held here, as { name, form, bytes, rest, before }; the library keeps nothing.
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
  const loadLibrary = async () => {
    const code = Uint8Array.from(atob(one("#wasm").textContent), character => character.charCodeAt(0));
    const { instance } = await WebAssembly.instantiate(code, {
      env: { emscripten_notify_memory_growth: () => {} },
      wasi_snapshot_preview1: new Proxy(system, { get: (known, name) => known[name] ?? (() => failure) }),
    });
    library = instance.exports;
    library._initialize();
    ask("make_page", "", "", new Uint8Array(128), ""); // so that the first drop finds the code of pages compiled
  };

  // Calls a function of App.cpp with texts and bytes. Returns its results as bytes; throws a refusal as an Error.
  const ask = (name, ...parts) => {
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
                    rest: toText(results[i + 3]), before: [] });
    return images;
  };

  // ---- What is shown ----

  const frame = one("#frame"), start = one("#start");
  let images = []; // one, or two that are compared
  let found = [];  // all of the file or text that came last
  let field = null; // that of the page that had the focus last: { image, index, name }

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
  // The name of a file of an image: without folders, and with another ending.
  const nameFile = (image, ending) =>
    (image.name.replace(/.*\//, "").replace(/\.[a-z0-9]{1,4}$/i, "").replace(/[^\w.()+-]+/g, "-") || "monitor") + ending;

  const listImages = () => {
    one("#images").replaceChildren(...images.map((image, at) => {
      const item = document.createElement("li"), name = document.createElement("span");
      const mark = images.length > 1 ? "AB"[at] + ": " : "";
      name.textContent = mark + image.name;
      const button = (text, action) => {
        const made = document.createElement("button");
        made.type = "button";
        made.textContent = text;
        made.setAttribute("aria-label", text + " " + mark + image.name);
        made.addEventListener("click", action);
        return made;
      };
      item.append(name, button("Save", () => save(image.bytes, "application/octet-stream", nameFile(image, ".bin"))));
      if (images.length > 1) item.append(button("Remove", () => { images.splice(at, 1); show(); }));
      return item;
    }));
    one("#found").replaceChildren(...found.map(image => new Option(image.name)));
    one("#found").selectedIndex = found.indexOf(images[images.length - 1]);
    one("#several").hidden = found.length < 2;
  };
  const nameField = () => {
    one("#edit").disabled = !field;
    one("#edit").textContent = field ? "Edit: " + field.name : "Edit a field";
    one("#undo").disabled = !images.some(image => image.before.length);
  };
  const makePage = numbered =>
    toText(ask("make_page", numbered, ...images.flatMap(image => [image.name, image.bytes, image.rest]))[0]);

  // Asks for the next image above the page, or for the first one; what: "start", "compare" or "" for none.
  let asked = "start";
  const askFor = what => {
    asked = what;
    start.hidden = !what;
    one("#open").setAttribute("aria-expanded", String(what === "start"));
    one("#compare").setAttribute("aria-expanded", String(what === "compare"));
    one("#heading").textContent = what === "compare" ? "Compare with which image?" : "What does a monitor say of itself?";
    if (what && images.length) one("#choose").focus();
  };

  // Makes the page anew. back says what gets the focus there: the field of an edit.
  const show = (back = null) => {
    const top = back ? frame.contentWindow.scrollY : 0;
    field = null;
    askFor(images.length ? "" : "start");
    one("#tools").hidden = frame.hidden = !images.length;
    listImages();
    nameField();
    if (!images.length) return;
    document.title = images.map(image => image.name).join(" and ") + " - zoredid";
    frame.onload = () => {
      adopt(frame.contentDocument);
      frame.contentWindow.scrollTo(0, top);
      if (back) itemOf(back)?.focus({ preventScroll: true });
    };
    frame.srcdoc = makePage("1");
  };

  // Two at once are compared, also two in one file without names of monitors; one joins the image that is there where
  // that was asked for.
  const take = read => {
    try {
      found = read.length === 1 ? readImages(read[0].name, read[0].content) : [];
      const next = read.length === 1 ? found.slice(0, 1) : read.map(({ name, content }) => readImages(name, content)[0]);
      images = asked === "compare" ? [images[0], next[0]] : next;
      const forms = new Set(next.map(image => image.form).filter(form => form !== "raw image"));
      say(found.length > 1 ? `${found.length} images in ${read[0].name}` : [...forms].join(", "));
      show();
    } catch (error) {
      say(error.message, true);
    }
  };
  const takeFiles = async given => {
    const files = [...given]; // the list itself is emptied after the event
    const read = files.slice(0, 2).map(async file => {
      checkSize(file.name, file.size);
      return { name: file.name, content: new Uint8Array(await file.arrayBuffer()) };
    });
    try {
      take(await Promise.all(read));
      if (files.length > 2) say(`The first two of ${files.length} files are compared.`);
    } catch (error) {
      say(error.message, true);
    }
  };
  const takeText = text => { if (text.trim()) take([{ name: "pasted", content: text }]); };

  // ---- The page in its frame ----

  const schemeOf = root => root.defaultView.getComputedStyle(root.documentElement).colorScheme;
  const itemOf = place => frame.contentDocument.querySelectorAll(".view")[place.image]
    ?.querySelector(`[data-i="${place.index}"]`);
  const placeOf = item => item && !item.hasAttribute("aria-expanded") && item.dataset.i !== undefined && {
    image: item.closest(".view").dataset.key === "a" ? 0 : 1, index: item.dataset.i,
    name: item.querySelector(".name").textContent };

  // Drops and pastes arrive wherever the pointer or the focus is.
  const listen = root => {
    root.addEventListener("dragover", event => {
      event.preventDefault();
      document.body.classList.add("over");
    });
    root.addEventListener("dragleave", () => document.body.classList.remove("over"));
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
    page.addEventListener("dblclick", event => edit(placeOf(event.target.closest("[role=treeitem]"))));
    page.addEventListener("keydown", event => {
      if (event.key !== "Enter" && event.key !== "F2") return;
      const place = placeOf(event.target.closest("[role=treeitem]"));
      if (!place) return;
      event.preventDefault();
      edit(place);
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
  const edit = place => {
    if (!place) return;
    edited = place;
    const [id, name, value] = ask("describe_field", images[place.image].bytes, place.index).map(toText);
    one("#field").textContent = (images.length > 1 ? "AB"[place.image] + ", " : "") + name;
    one("#id").textContent = id;
    one("#value").value = value;
    one("#refusal").textContent = "";
    dialog.showModal();
    one("#value").select();
    placeDialog();
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
    const image = images[edited.image];
    try {
      const [bytes, note] = ask("set_field", image.bytes, edited.index, one("#value").value);
      image.before.push(image.bytes);
      image.bytes = bytes;
      dialog.close();
      show(edited);
      say(toText(note));
    } catch (error) {
      one("#refusal").textContent = error.message;
      placeDialog();
      one("#value").focus();
    }
  });
  one("#cancel").addEventListener("click", () => dialog.close());
  dialog.addEventListener("close", () => itemOf(edited)?.focus({ preventScroll: true }));
  one("#edit").addEventListener("click", () => edit(field));
  one("#undo").addEventListener("click", () => {
    const image = images[edited.image]?.before.length ? images[edited.image] : images.find(other => other.before.length);
    image.bytes = image.before.pop();
    show(edited);
    say("The last edit is undone.");
  });

  // ---- Buttons ----

  one("#choose").addEventListener("click", () => one("#files").click());
  one("#files").addEventListener("change", event => {
    if (event.target.files.length) takeFiles(event.target.files);
    event.target.value = "";
  });
  one("#pasting").addEventListener("submit", event => {
    event.preventDefault();
    takeText(one("#text").value);
  });
  one("#open").addEventListener("click", () => askFor(asked === "start" ? "" : "start"));
  one("#compare").addEventListener("click", () => askFor(asked === "compare" ? "" : "compare"));
  one("#found").addEventListener("change", event => {
    images[images.length - 1] = found[event.target.selectedIndex];
    show();
  });
  one("#page").addEventListener("click", () => save(makePage(""), "text/html", nameFile(images[0], ".html")));

  listen(document);
  loadLibrary().then(
    () => document.documentElement.classList.add("ready"),
    error => say("This browser does not run the library: " + error.message, true));
})();
