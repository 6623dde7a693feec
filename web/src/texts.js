// Numbers, units and failures as the page words them.

const counts = new Intl.NumberFormat("en");

export const formatCount = (count) => counts.format(count);

/** "1 point", "2 points". */
export function countOf(count, noun) {
  return `${formatCount(count)} ${noun}${count === 1 ? "" : "s"}`;
}

export function formatSize(bytes) {
  if (bytes < 1000) return countOf(bytes, "byte");
  const inKilo = bytes / 1000;
  const [value, unit] = inKilo < 999.5 ? [inKilo, "kB"] : [inKilo / 1000, "MB"];
  return `${value.toFixed(value < 10 ? 1 : 0)} ${unit}`;
}

/** Signs of lengths by the names of the package. */
export const kUnitSigns = { m: "m", ft: "ft", usft: "US ft" };
export const kUnitNames = { m: "metres", ft: "international feet", usft: "US survey feet" };
export const kMetres = { m: 1, ft: 0.3048, usft: 1200 / 3937 };

/** A length with its unit; "none" if there is none. */
export function formatLength(value, unit, decimals = 3) {
  if (value === null || value === undefined) return "none";
  return unit ? `${value.toFixed(decimals)} ${kUnitSigns[unit]}` : value.toFixed(decimals);
}

const kAdvice = {
  NotReadableError: "The file has changed or gone since it was added. Add it again.",
  NotFoundError: "The file has changed or gone since it was added. Add it again.",
  RangeError: "The file is too large for the memory of this browser.",
};

/** What to tell of a failure: one line, and the converter's texts. */
export function failureOf(error) {
  const text = kAdvice[error.name] ?? error.message;
  const isSentence = /^[a-z]+[ ,]/.test(text);  // not one that begins with the name of a file
  const message = isSentence ? text.charAt(0).toUpperCase() + text.slice(1) : text;
  return { message, messages: error.messages ?? [] };
}
