// The functions of the package; index.d.ts tells what they do.
import { Converter } from "./converter.js";

export { Converter } from "./converter.js";
export { ConversionError } from "./errors.js";

const shared = new Converter();

export const types = (call) => shared.types(call);
export const detect = (name, bytes, call) => shared.detect(name, bytes, call);
export const convert = (request) => shared.convert(request);
export const importCr5 = (request) => shared.importCr5(request);
export const importSdr = (request) => shared.importSdr(request);
export const merge = (request) => shared.merge(request);
export const losses = (request) => shared.losses(request);
export const info = (request) => shared.info(request);
export const points = (request) => shared.points(request);
export const pointsAsCsv = (request) => shared.pointsAsCsv(request);
export const plot = (request) => shared.plot(request);
export const diff = (request) => shared.diff(request);
export const close = () => shared.close();
