// Workers of the browser and of Node under one face.

const isNode = typeof process === "object" && process.versions?.node !== undefined;

/**
 * Starts worker.js. receive: gets its messages; fail: is told once that it died, with the reason.
 * hold and release say whether the program waits for the worker before it ends.
 */
export async function startThread(receive, fail) {
  return isNode ? startInNode(receive, fail) : startInBrowser(receive, fail);
}

async function startInNode(receive, fail) {
  const { Worker } = await import("node:worker_threads");
  const worker = new Worker(new URL("./worker.js", import.meta.url));
  worker.on("message", receive);
  worker.on("error", fail);
  worker.on("exit", () => fail(new Error("the worker ended")));
  return {
    post: (message, transfer) => worker.postMessage(message, transfer),
    stop: () => void worker.terminate(),
    hold: () => worker.ref(),
    release: () => worker.unref(),
  };
}

function startInBrowser(receive, fail) {
  const worker = new Worker(new URL("./worker.js", import.meta.url), { type: "module" });
  worker.onmessage = ({ data }) => receive(data);
  worker.onerror = (event) => {
    event.preventDefault();
    fail(new Error(event.message ?? "the worker can't be loaded"));
  };
  return {
    post: (message, transfer) => worker.postMessage(message, transfer),
    stop: () => worker.terminate(),
    hold() {},
    release() {},
  };
}

/** In a worker: gives every message to `receive`, and returns what posts one back. */
export async function listen(receive) {
  if (isNode) {
    const { parentPort } = await import("node:worker_threads");
    // Names of temporary files can't be guessed. Node 18 has no such global yet.
    globalThis.crypto ??= (await import("node:crypto")).webcrypto;
    parentPort.on("message", receive);
    return (message, transfer) => parentPort.postMessage(message, transfer);
  }
  globalThis.onmessage = ({ data }) => receive(data);
  return (message, transfer) => globalThis.postMessage(message, transfer);
}

/** The module's code, compiled away from the thread that asks. */
export async function compile(url) {
  if (isNode) {
    const { readFile } = await import("node:fs/promises");
    return WebAssembly.compile(await readFile(new URL(url)));
  }
  const response = await fetch(url);
  if (!response.ok) throw new Error(`${url}: ${response.status} ${response.statusText}`);
  // Streaming asks for the type of the file, which not every server knows.
  const isTyped = response.headers.get("Content-Type") === "application/wasm";
  return isTyped
    ? WebAssembly.compileStreaming(response)
    : WebAssembly.compile(await response.arrayBuffer());
}
