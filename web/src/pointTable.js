// The points of a file from their table (RFC 4180), in columns: a million take no object each.

const kRowsAtOnce = 20000;

/** One row from `start`: its fields, and where the next one starts. */
function readRow(csv, start) {
  const fields = [];
  let place = start;
  for (;;) {
    let field;
    if (csv[place] === '"') {
      let end = csv.indexOf('"', place + 1);
      while (csv[end + 1] === '"') end = csv.indexOf('"', end + 2);
      field = csv.slice(place + 1, end).replaceAll('""', '"');
      place = end + 1;
    } else {
      const begin = place;
      while (place < csv.length && csv[place] !== "," && csv[place] !== "\n" && csv[place] !== "\r") {
        ++place;
      }
      field = csv.slice(begin, place);
    }
    fields.push(field);
    if (csv[place] !== ",") break;
    ++place;
  }
  if (csv[place] === "\r") ++place;
  return { fields, next: place + 1 };
}

const numberOf = (text) => (text === "" ? NaN : Number(text));

export class PointTable {
  #csv;
  #starts = [];  // of rows in the text
  length = 0;
  codes = [];  // of each point
  #north = [];
  #east = [];

  static heads = ["Point", "North", "East", "Elevation", "Code"];

  constructor(csv) {
    this.#csv = csv;
  }

  /** Reads the text in slices, between which the page goes on living. */
  static async read(csv) {
    const table = new PointTable(csv);
    let place = readRow(csv, 0).next;
    while (place < csv.length) {
      place = table.#readSome(place);
      if (place < csv.length) await new Promise((done) => setTimeout(done));
    }
    table.north = Float64Array.from(table.#north);
    table.east = Float64Array.from(table.#east);
    table.#north = table.#east = null;
    return table;
  }

  #readSome(place) {
    const codes = new Map();  // one text of each code, however many points have it
    for (let row = 0; row < kRowsAtOnce && place < this.#csv.length; ++row) {
      const { fields, next } = readRow(this.#csv, place);
      const [, north, east, , code] = fields;
      if (!codes.has(code)) codes.set(code, code);
      this.#starts.push(place);
      this.#north.push(numberOf(north));
      this.#east.push(numberOf(east));
      this.codes.push(codes.get(code));
      place = next;
    }
    this.length = this.#starts.length;
    return place;
  }

  /** Texts of a point in the order of `heads`, with the decimals of the file. */
  row(index) {
    return readRow(this.#csv, this.#starts[index]).fields;
  }

  nameOf(index) {
    return this.row(index)[0];
  }

  hasPlace(index) {
    return Number.isFinite(this.north[index]) && Number.isFinite(this.east[index]);
  }

  /** Indices of the points whose name or code holds the text, whatever its case. */
  find(text) {
    const wanted = text.trim().toLowerCase();
    const found = [];
    for (let index = 0; index < this.length; ++index) {
      const isFound = wanted === "" || this.nameOf(index).toLowerCase().includes(wanted) ||
        this.codes[index].toLowerCase().includes(wanted);
      if (isFound) found.push(index);
    }
    return found;
  }
}
