// Files that a user drops or chooses, folders with all that is in them.

const kMostFiles = 5000;

/** {file, folder}: folder is "" or ends with a slash. */
function fromFile(file, folder = "") {
  return { file, folder };
}

function readEntries(reader) {
  return new Promise((resolve, reject) => reader.readEntries(resolve, reject));
}

async function walk(entry, found) {
  if (found.length >= kMostFiles) return;
  if (entry.isFile) {
    const file = await new Promise((resolve, reject) => entry.file(resolve, reject));
    found.push(fromFile(file, entry.fullPath.replace(/^\//, "").replace(/[^/]*$/, "")));
    return;
  }
  const reader = entry.createReader();
  // A reader gives some of them at a time, and none at the end.
  for (let some = await readEntries(reader); some.length > 0; some = await readEntries(reader)) {
    for (const child of some) await walk(child, found);
  }
}

/** Of a drop. Its list is read before anything is waited for: it is gone afterwards. */
export async function filesOfDrop(transfer) {
  const entries = Array.from(transfer.items ?? [], (item) => item.webkitGetAsEntry?.());
  if (!entries.some((entry) => entry?.isDirectory)) {
    return { files: Array.from(transfer.files, (file) => fromFile(file)), isFolder: false };
  }
  const found = [];
  for (const entry of entries) if (entry) await walk(entry, found);
  return { files: found, isFolder: true };
}

/** Of an input for files or a folder. */
export function filesOfInput(input) {
  const files = Array.from(input.files).slice(0, kMostFiles);
  return {
    files: files.map((file) =>
      fromFile(file, file.webkitRelativePath.replace(/[^/]*$/, ""))),
    isFolder: input.webkitdirectory,
  };
}
