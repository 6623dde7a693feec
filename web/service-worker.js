// Keeps the page's files, so that it works without a net once it was loaded. scripts/web.sh puts in
// their names and a version, which changes with any of them.
const kVersion = "@VERSION@";
const kFiles = ["@FILES@"];

const kCache = `zelconvert ${kVersion}`;

addEventListener("install", (event) => {
  // Past the browser's own cache, which may hold files of several versions.
  const requests = kFiles.map((file) => new Request(file, { cache: "reload" }));
  event.waitUntil(caches.open(kCache).then((cache) => cache.addAll(requests)));
});

addEventListener("activate", (event) => {
  event.waitUntil((async () => {
    const old = (await caches.keys()).filter((name) => name.startsWith("zelconvert ") && name !== kCache);
    await Promise.all(old.map((name) => caches.delete(name)));
    await clients.claim();
  })());
});

addEventListener("fetch", (event) => {
  if (event.request.method !== "GET") return;
  event.respondWith((async () => {
    const cache = await caches.open(kCache);
    return await cache.match(event.request, { ignoreSearch: true }) ?? fetch(event.request);
  })());
});
