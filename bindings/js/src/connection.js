// The worker of a converter: calls in their order, each settled whatever becomes of the worker.
import { ConversionError } from "./errors.js";
import { compile, startThread } from "./threads.js";

/** What an engine says of memory that it can't get, wherever it happens to be asked for. */
const kShortMemory = /memory|allocation failed|array length/i;

function crashError(reason) {
  const isShort = kShortMemory.test(reason) && !/out of bounds/.test(reason);
  return isShort
    ? new ConversionError("failed", "there is not enough memory")
    : new ConversionError("crash", `the converter broke down: ${reason}`);
}

export class Connection {
  #module;
  #compiled = null;
  #thread = null;
  #pending = null;  // the call under way
  #last = Promise.resolve();  // settles with the last call

  /** module: the addresses of the module's two files. */
  constructor(module) {
    this.#module = module;
  }

  /** What worker.js answers to `call`. transfer: what of it goes over instead of being copied. */
  run(call, transfer, { signal, onProgress } = {}) {
    if (signal?.aborted) return Promise.reject(signal.reason);
    const done = this.#last.then(() => this.#start(call, transfer, signal, onProgress));
    this.#last = done.catch(() => {});
    return new Promise((resolve, reject) => {
      const abort = () => reject(signal.reason);  // at once, also of a call that still waits
      signal?.addEventListener("abort", abort);
      const settled = () => signal?.removeEventListener("abort", abort);
      done.then(resolve, reject).finally(settled);
    });
  }

  close() {
    this.#end(new ConversionError("failed", "the converter was closed"));
  }

  async #start(call, transfer, signal, onProgress) {
    signal?.throwIfAborted();
    this.#compiled ??= this.#compile();
    const module = await this.#compiled;
    this.#thread ??= await this.#startThread();
    signal?.throwIfAborted();
    const stop = () => this.#end(signal.reason);
    signal?.addEventListener("abort", stop);
    try {
      return await new Promise((resolve, reject) => {
        this.#pending = { resolve, reject, onProgress };
        this.#thread.hold();
        this.#thread.post({ ...call, script: this.#module.script, module }, transfer);
      });
    } finally {
      signal?.removeEventListener("abort", stop);
      this.#pending = null;
      this.#thread?.release();
    }
  }

  async #compile() {
    try {
      return await compile(this.#module.wasm);
    } catch (error) {
      this.#compiled = null;
      throw new ConversionError("crash", `the converter can't be loaded: ${error.message}`);
    }
  }

  async #startThread() {
    const thread = await startThread(
      (message) => this.#receive(message),
      (error) => {
        if (this.#thread === thread) this.#end(crashError(error.message));
      },
    );
    thread.release();
    return thread;
  }

  #receive(message) {
    if (this.#pending === null) return;
    if (message.percent !== undefined) {
      this.#pending.onProgress?.(message.percent);
    } else if (message.crash !== undefined) {
      this.#pending.reject(crashError(message.crash));
    } else {
      this.#pending.resolve(message);
    }
  }

  /** Stops the worker, and the call under way with it. */
  #end(reason) {
    this.#thread?.stop();
    this.#thread = null;
    this.#pending?.reject(reason);
  }
}
