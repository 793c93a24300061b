// Lets the search work where the site is read from a folder. There a page may neither fetch the index of the
// search, which stands above this line, nor start a worker; its script then runs in an empty frame of the page.
if (location.protocol === "file:") {
  window.__search = { index: Promise.resolve(searchIndex) };
  window.Worker = class extends EventTarget {
    constructor(url) {
      super();
      this.frame = document.createElement("iframe");
      this.frame.hidden = true;
      document.body.append(this.frame);
      const script = this.frame.contentDocument.createElement("script");
      script.src = url;
      this.loaded = new Promise((done) => { script.onload = done; });
      this.frame.contentWindow.postMessage = (data) => this.dispatchEvent(new MessageEvent("message", { data }));
      this.frame.contentDocument.body.append(script);
    }
    postMessage(data) {
      this.loaded.then(() => this.frame.contentWindow.dispatchEvent(new MessageEvent("message", { data })));
    }
  };
}
