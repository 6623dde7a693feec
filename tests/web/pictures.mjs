// node tests/web/pictures.mjs: takes docs/pictures/web-*.png again, of the page in build/web.
import { join } from "node:path";
import { drop, example, launch, open, says, serve, top } from "./browser.mjs";

const server = await serve();
const browser = await launch();

async function take(name, options, ...steps) {
  const user = await open(browser, server.url, options);
  await says(user, "#offline", /Works offline/);
  for (const step of steps) await step(user);
  await new Promise((done) => setTimeout(done, 500));
  await user.page.screenshot({ path: join(top, "docs/pictures", `web-${name}.png`) });
  await user.context.close();
}

const kWide = { width: 1280, height: 860 };
const kPhone = { width: 400, height: 800 };
const kDark = { scheme: "dark" };

const files = (...names) => async (user) => {
  await drop(user, ...names.map(example));
  await user.page.waitForFunction((count) => {
    const told = [...document.querySelectorAll(".told")];
    return told.length === count && told.every((each) => !/reading/.test(each.textContent));
  }, {}, names.length);
  if (user.page.viewport().width > 500 || names.length === 1) await says(user, "#tab-points", /Points \(/);
};
const click = (selector) => (user) => user.page.click(selector);
const shows = (selector, pattern) => (user) => says(user, selector, pattern);
const down = (selector) => (user) => user.page.$eval(selector, (element) => element.scrollIntoView());

const kDay = ["mill-creek.raw", "mill-creek-simple.raw", "ridge-road.dc", "control.job", "prairie-rtk.raw"];

await take("welcome", kWide);
await take("plan", kWide, files(...kDay));
await take("points", { ...kWide, ...kDark }, files(...kDay), click("#tab-points"));
await take("all", kWide, files(...kDay), click("#all"), click(".all button.primary"), shows(".result", /converted\./));
await take("compare", kWide, files(...kDay), click("#compare"), click(".compare button.primary"), shows(".compare", /differences/));
await take("phone-files", kPhone, files(...kDay));
await take("phone-plan", { ...kPhone, ...kDark }, files("ridge-road.dc"));
await take("phone-contents", kPhone, files("mill-creek.raw"), click("#tab-contents"));
await take("phone-convert", kPhone, files("mill-creek.raw"), click(".convert button.primary"), shows(".result", /Save it/),
  down(".convert"));
await take("phone-failure", { ...kPhone, ...kDark }, files("control.job"),
  (user) => user.page.select("#target", "cr5"), click(".convert button.primary"), shows(".result", /was not converted/),
  down(".convert"));

await browser.close();
await server.close();
