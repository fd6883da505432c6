"use strict";
(() => {
  const query = document.getElementById("query");
  const found = document.getElementById("found");
  const articles = [...document.querySelectorAll("article")];
  const entries = [...document.querySelectorAll("#list li")];
  const all = found.textContent;
  const mark = globalThis.CSS && CSS.highlights && globalThis.Highlight;
  const parts = "h3, dd, tbody, li";
  let texts;

  function textOf(article) {
    return [...article.querySelectorAll(parts)].map((part) => part.textContent).join("\n").toLowerCase();
  }

  // Highlights what was searched for in what the reader is likely to see first.
  function highlight(words, shown) {
    if (!mark) return;
    CSS.highlights.delete("query");
    if (words.length === 0) return;
    const ranges = [];
    for (const part of shown.slice(0, 40).flatMap((article) => [...article.querySelectorAll(parts)])) {
      const walker = document.createTreeWalker(part, NodeFilter.SHOW_TEXT);
      for (let node = walker.nextNode(); node; node = walker.nextNode()) {
        const text = node.data.toLowerCase();
        if (text.length !== node.data.length) continue;
        for (const word of words) {
          for (let at = text.indexOf(word); at >= 0; at = text.indexOf(word, at + word.length)) {
            const range = new Range();
            range.setStart(node, at);
            range.setEnd(node, at + word.length);
            ranges.push(range);
          }
        }
      }
    }
    CSS.highlights.set("query", new Highlight(...ranges));
  }

  // Shows the objects that hold every word.
  function search() {
    const words = query.value.toLowerCase().split(/\s+/).filter((word) => word !== "");
    if (words.length > 0) texts ??= articles.map(textOf);
    const shown = articles.filter((article, i) => {
      const matches = words.every((word) => texts[i].includes(word));
      article.hidden = !matches;
      entries[i].hidden = !matches;
      return matches;
    });
    document.body.classList.toggle("searching", words.length > 0);
    found.textContent = words.length === 0 ? all : `${shown.length} of ${all}`;
    highlight(words, shown);
  }

  // The address keeps the query, so that a result can be passed on: page.html#q=customer
  function remember() {
    const address = query.value === "" ? location.pathname + location.search : "#q=" + encodeURIComponent(query.value);
    try {
      history.replaceState(null, "", address);
    } catch {
      // Some hosts of documents forbid it; the search works all the same.
    }
  }

  function follow() {
    const hash = location.hash;
    if (hash.startsWith("#q=")) {
      try {
        query.value = decodeURIComponent(hash.slice(3));
      } catch {
        query.value = hash.slice(3);
      }
      search();
      return;
    }
    const target = hash.length > 1 && document.getElementById(hash.slice(1));
    if (target && target.getClientRects().length === 0 && query.value !== "") {
      query.value = "";
      search();
      target.scrollIntoView();
    }
  }

  query.addEventListener("input", () => {
    search();
    remember();
  });
  document.getElementById("search").addEventListener("submit", (event) => event.preventDefault());
  document.addEventListener("keydown", (event) => {
    const isTyping = event.target instanceof HTMLInputElement;
    if (event.key === "/" && !isTyping && !event.ctrlKey && !event.metaKey && !event.altKey) {
      event.preventDefault();
      query.focus();
      query.select();
    } else if (event.key === "Escape" && event.target === query && query.value !== "") {
      query.value = "";
      search();
      remember();
    }
  });
  addEventListener("hashchange", follow);
  const fit = document.getElementById("fit");
  if (fit) {
    const picture = document.querySelector(".picture");
    const apply = () => picture.classList.toggle("fit", fit.checked);
    // A little smaller is still readable.
    fit.checked = picture.scrollWidth <= 1.5 * picture.clientWidth;
    fit.addEventListener("change", apply);
    apply();
  }
  follow();
})();
