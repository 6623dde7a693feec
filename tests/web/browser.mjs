// The page of build/web in a headless browser: a static server that notes what it is asked for, and a
// page that is used by drops, keys and clicks.
import { spawnSync } from "node:child_process";
import { createServer } from "node:http";
import { existsSync, mkdtempSync, readFileSync, statSync } from "node:fs";
import { tmpdir } from "node:os";
import { dirname, extname, join, normalize } from "node:path";
import { fileURLToPath } from "node:url";
import puppeteer from "puppeteer-core";

export const top = join(dirname(fileURLToPath(import.meta.url)), "../..");
export const example = (name) => join(top, "examples", name);

const kTypes = {
  ".html": "text/html", ".js": "text/javascript", ".css": "text/css", ".svg": "image/svg+xml",
  ".webmanifest": "application/manifest+json", ".wasm": "application/wasm",
};

/** A server that has the page at a path, with what was asked for beneath it. */
export async function serve(at = "/") {
  const folder = join(top, "build/web");
  const asked = [];
  const server = createServer((request, response) => {
    const path = normalize(decodeURIComponent(new URL(request.url, "http://host").pathname));
    if (!path.startsWith(at)) return response.writeHead(404).end();
    asked.push(path.slice(at.length));
    const file = join(folder, path.slice(at.length), path.endsWith("/") ? "index.html" : "");
    if (!existsSync(file) || !statSync(file).isFile()) return response.writeHead(404).end();
    response.writeHead(200, { "Content-Type": kTypes[extname(file)] ?? "application/octet-stream" });
    response.end(readFileSync(file));
  });
  await new Promise((resolve) => server.listen(0, "127.0.0.1", resolve));
  const close = () => new Promise((resolve) => {
    server.closeAllConnections();
    server.close(resolve);
  });
  return { url: `http://127.0.0.1:${server.address().port}${at}`, asked, close };
}

function browserPath() {
  const found = ["chromium", "chromium-browser", "google-chrome"]
    .map((name) => spawnSync("sh", ["-c", `command -v ${name}`], { encoding: "utf8" }).stdout.trim());
  return found.find((path) => path !== "") ?? "chromium";
}

export function launch() {
  const asRoot = process.getuid?.() === 0 ? ["--no-sandbox"] : [];
  return puppeteer.launch({
    executablePath: browserPath(),
    headless: true,
    protocolTimeout: 600000,
    args: [...asRoot, "--disable-dev-shm-usage", "--no-first-run", "--disable-background-networking"],
  });
}

/** A page that was opened and has started, with what it complained of and asked for. */
export async function open(browser, url, { width = 1280, height = 900, scheme = "light", hasTouch = false } = {}) {
  const context = await browser.createBrowserContext();
  const page = await context.newPage();
  const downloads = mkdtempSync(join(tmpdir(), "zelconvert-web-"));
  const complaints = [], requests = [];
  page.on("console", (message) => ["error", "warn"].includes(message.type()) && complaints.push(message.text()));
  page.on("pageerror", (error) => complaints.push(String(error)));
  page.on("request", (request) => requests.push(request.url()));
  await page.setViewport({ width, height, hasTouch });
  await page.emulateMediaFeatures([{ name: "prefers-color-scheme", value: scheme }]);
  const client = await page.createCDPSession();
  await client.send("Browser.setDownloadBehavior", {
    behavior: "allow", downloadPath: downloads, browserContextId: context.id, eventsEnabled: true,
  });
  await page.goto(url);
  await page.waitForSelector("body.started");
  return { page, client, context, complaints, requests, downloads };
}

/** Drops files or folders of the disk onto the page, as a user does. */
export async function drop({ client }, ...paths) {
  const data = { items: [], files: paths, dragOperationsMask: 1 };
  for (const type of ["dragEnter", "dragOver", "drop"]) {
    await client.send("Input.dispatchDragEvent", { type, x: 300, y: 300, data });
  }
}

export const text = ({ page }, selector) =>
  page.$eval(selector, (element) => element.textContent);

/** Waits until an element says what it should. */
export function says({ page }, selector, pattern, timeout = 60000) {
  return page.waitForFunction(
    (where, source) => [...document.querySelectorAll(where)]
      .some((element) => element.checkVisibility() && new RegExp(source).test(element.textContent)),
    { timeout, polling: 20 }, selector, pattern.source);
}

/** The button or tab of that text. */
export function press({ page }, label) {
  return page.locator(`::-p-aria(${label})`).click();
}

/** Follows a link that saves a file, and gives the bytes of the file, whose name stands there before them. */
export async function save({ page, downloads }, selector) {
  const name = await page.$eval(selector, (link) => link.download);
  await page.locator(selector).click();
  const path = join(downloads, name);
  for (let waited = 0; !(statSync(path, { throwIfNoEntry: false })?.size > 0); waited += 20) {
    if (waited > 30000) throw new Error(`${name} wasn't saved`);
    await new Promise((resolve) => setTimeout(resolve, 20));
  }
  return readFileSync(path);
}
