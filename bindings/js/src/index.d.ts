/**
 * zelconvert converts land-survey field data between data collectors and office programs, in the
 * browser and in Node. Files are arrays of bytes in memory; nothing is sent anywhere.
 *
 * The functions of this module share one converter, whose worker starts with the first call and works
 * on one call after the other. `new Converter()` is a worker of its own, for more than one at a time.
 *
 * Every call settles. A file that breaks the converter, or needs more memory than there is, is a
 * rejected promise; the next call works.
 */

/** Short names of the file types, as in the host's `--from` and `--to`. */
export type TypeName =
  | "job" | "oldjob" | "pwj" | "cr5" | "seqcr5"
  | "dc" | "dc77" | "dc1000" | "dc1070"
  | "raw" | "rw5" | "pwr" | "job+raw" | "pwj+pwr" | "cr5+rw5"
  | "sdr33" | "sdr2" | "ilj" | "jxl";

/** Metres, international feet, US survey feet. */
export type LengthUnit = "m" | "ft" | "usft";

/** A file in memory. */
export interface SurveyFile {
  /** Without a folder. The extension tells the type, and messages call the file so. */
  name: string;
  /** Is copied: it stays the caller's, and may change once the call has been made. */
  bytes: Uint8Array | ArrayBuffer;
}

/** A file that was made. */
export interface MadeFile {
  name: string;
  bytes: Uint8Array;
}

/** What every call takes beside its own. */
export interface CallOptions {
  /** Aborting ends the call at once with the signal's reason, also in the middle of a conversion. */
  signal?: AbortSignal;
  /**
   * Receives percentages, 0 to 100. A call that works in several steps, such as a DC file that
   * becomes a coordinate list by way of a job, counts each of them.
   */
  onProgress?: (percent: number) => void;
}

/** The files of a call that reads one survey. */
export interface Input {
  /**
   * The first is the one that is read; the others stand beside it: the log of a job (`job+raw`), the
   * job of a log. Names differ.
   */
  files: SurveyFile[];
  /** The type of the first file. Without it name and first bytes tell. */
  from?: TypeName;
  /** Of a coordinate list, which doesn't tell its unit. */
  units?: LengthUnit;
  /** The name of one of `files`: the job whose points a log refers to. */
  job?: string;
}

/** A kind of record of a type, and which routes carry it. */
export interface RecordKind {
  /** As the format calls it, such as "SS" or "69"; of a job a number, or what its head holds. */
  key: string;
  name: string;
  /** The types that look otherwise without such records. */
  carriedTo: TypeName[];
}

export interface TypeInfo {
  name: TypeName;
  /** The library's number. */
  number: number;
  /** With its point. */
  extension: string;
  description: string;
  /** For dialogs: description and pattern, parts separated by "|", two bars at the end. */
  filter: string;
  convertsTo: TypeName[];
  records: RecordKind[];
}

export interface Detected {
  file: string;
  readable: boolean;
  /** Null: no type fits. */
  type: TypeName | null;
  /** The library's number of the type; -1: none. */
  number: number;
  /** How the type was told, or why it wasn't. */
  reason: string;
}

export interface ConvertRequest extends Input, CallOptions {
  to: TypeName;
  /** Name of the output. Without it that of the input, with the extension of `to`. */
  name?: string;
  /** Reads the output back and compares it with the input; what is missing is a failure. */
  verify?: boolean;
  /**
   * Whether GPS records of a log need the signature of their equipment to be carried over; true
   * without it.
   */
  gpsSignature?: boolean;
}

export interface Converted {
  /** The output first, then the road files that were made beside it. */
  files: MadeFile[];
  /** The library's texts, in the order in which they arose. */
  messages: string[];
  /** What the host would warn of, such as a name that tells another type. */
  warning: string | null;
}

export interface ImportCr5Request extends CallOptions {
  /** The list, alone. */
  files: SurveyFile[];
  /** Of its coordinates; without it metres, which `warning` says. */
  units?: LengthUnit;
  /** What it becomes: "job" without it. */
  to?: "job" | "oldjob" | "pwj";
  /** Name of the job. Without it that of the list, with the extension of `to`. */
  name?: string;
}

export interface ImportSdrRequest extends CallOptions {
  /** The SDR file, alone. */
  files: SurveyFile[];
  /** Without it the first header of the file decides. */
  from?: "sdr2" | "sdr33";
  /** Name of the log. Without it that of the file, with the extension .raw. */
  name?: string;
}

export interface MergeRequest extends CallOptions {
  /** The job whose settings, coordinate system and layers the new one has. */
  a: SurveyFile;
  b: SurveyFile;
  /** Name of the new job, by which its brand is told; "merged" with the extension of `a` without it. */
  name?: string;
}

export interface LossesRequest extends CallOptions {
  from: TypeName;
  to: TypeName;
  /** What `info` told of the file, of which its kinds of records are counted. */
  info?: Pick<Info, "records">;
}

/** A kind of record on a route. */
export interface CarriedKind {
  key: string;
  name: string;
  /** In the file that `info` told of; null where it doesn't count them, or wasn't given. */
  count: number | null;
}

/** What a route does with the records of a type. Without `info` of a file: all kinds there are. */
export interface Losses {
  carried: CarriedKind[];
  dropped: CarriedKind[];
}

/** What a file holds. Null is what it doesn't tell. */
export interface Info {
  file: string;
  type: TypeName;
  /** How the type was told. */
  reason: string;
  job: string | null;
  /** Days, as "2026-09-14". */
  firstDate: string | null;
  lastDate: string | null;
  /** Of all lengths here but those in `system.parameters`. */
  lengthUnit: LengthUnit | null;
  angleUnit: "degrees" | "gons";
  /** Whether the file counts azimuths from south. */
  southAzimuth: boolean;
  system: CoordinateSystem | null;
  /** Of a job without a system. */
  scale: number;
  points: number;
  deletedPoints: number;
  setups: number;
  shots: number;
  vectors: number;
  notes: number;
  roads: { name: string; length: number | null }[];
  /** Lowest and highest; null without a point. */
  north: [number, number] | null;
  east: [number, number] | null;
  lowest: { elevation: number; point: string } | null;
  highest: { elevation: number; point: string } | null;
  measuredAgain: { point: string; positions: number; plan: number; height: number | null }[];
  traverses: Traverse[];
  backsights: Backsight[];
  /** What seems wrong with the file. */
  warnings: { kind: string; text: string; line: number | null }[];
  records: { tag: string; name: string; count: number }[];
  messages: string[];
}

export interface CoordinateSystem {
  /** Only where projection and datum are those of this code. */
  epsg: number | null;
  /** Null where the file names a system without telling it. */
  projection: string | null;
  zoneGroup: string | null;
  zone: string | null;
  datum: string | null;
  ellipsoid: string | null;
  /** Degrees, metres and ratios by their names. */
  parameters: Record<string, number>;
}

export interface Traverse {
  from: string;
  to: string;
  legs: number;
  length: number;
  /** Where the last shot leads less where the point is. */
  north: number;
  east: number;
  height: number | null;
  plan: number;
  /** The n of 1 : n. */
  ratio: number | null;
}

export interface Backsight {
  station: string;
  backsight: string;
  line: number | null;
  /** Seconds of arc, or 0.0001 gon. */
  azimuth: number | null;
  distance: number | null;
  height: number | null;
}

export interface ReadRequest extends Input, CallOptions {}

export interface PointsRequest extends ReadRequest {
  /** "wgs84" needs a library that is not here, and is refused; "native" without it. */
  crs?: "native" | "wgs84";
}

/** A point with a place in the grid, or measured by GPS. Lengths in the unit of the file. */
export interface PointProperties {
  name: string;
  code: string;
  north: number | null;
  east: number | null;
  elevation: number | null;
}

/** RFC 7946, with east and north in the place of longitude and latitude. */
export interface PointCollection {
  type: "FeatureCollection";
  features: {
    type: "Feature";
    geometry: { type: "Point"; coordinates: number[] };
    properties: PointProperties;
  }[];
  [member: string]: unknown;
}

export interface Points {
  collection: PointCollection;
  /** Such as that points have no place and are left out. */
  warning: string | null;
  messages: string[];
}

export interface PointsText {
  /** RFC 4180, with the decimals of the file. */
  csv: string;
  warning: string | null;
  messages: string[];
}

export interface Plot {
  /** A document with north up on a sheet of A3 paper. */
  svg: string;
  /** The n of 1 : n; 0: nothing has a place in plan. */
  scale: number;
  paper: "A3 portrait" | "A3 landscape";
  geographic: boolean;
  dots: boolean;
  drawn: Record<"points" | "names" | "sights" | "vectors" | "roads", number>;
  leftOut: Record<
    | "names" | "farPoints" | "pointsWithoutCoordinates" | "deletedPoints"
    | "linesWithoutCoordinates" | "roadsWithoutAlignment",
    number
  >;
  warning: string | null;
  messages: string[];
}

export interface DiffRequest extends CallOptions {
  /** As `files` of an `Input`: the first is compared, the others stand beside it. */
  a: SurveyFile[];
  b: SurveyFile[];
  /** The types of the two, where name and contents don't tell them. */
  fromA?: TypeName;
  fromB?: TypeName;
  /** What counts as the same place, in metres; 0.001 without it. */
  tolerance?: number;
  /** Of a coordinate list; without it that of the other file. */
  units?: LengthUnit;
}

export interface Difference {
  subject: "system" | "point" | "setup" | "shot" | "vector" | "road";
  /** "station > backsight" of a setup, "from > to" of a shot or vector; a system has none. */
  name?: string;
  change:
    | "only in A" | "only in B" | "moved" | "recoded" | "deleted" | "undeleted" | "changed";
  /** Metres: where a point is that only one has; of one that has moved B less A. */
  north?: number | null;
  east?: number | null;
  elevation?: number | null;
  /** How far it has moved. */
  plan?: number | null;
  code?: string | null;
  deleted?: boolean;
  /** What has changed, before and after; of a recoded one the codes. */
  property?: string;
  a?: string | number | null;
  b?: string | number | null;
  lineInA: number | null;
  lineInB: number | null;
}

export interface Diff {
  equal: boolean;
  /** Metres. */
  tolerance: number;
  files: {
    file: string;
    type: TypeName;
    lengthUnit: LengthUnit | null;
    angleUnit: "degree" | "gon";
    epsg: number | null;
  }[];
  /** How many each file has, by subject. */
  counts: Record<string, { a: number; b: number }>;
  /** Kinds that one of the types can't hold. */
  notCompared: string[];
  differences: Difference[];
  messages: string[];
}

/** Why a call failed; `message` is one line for the user. */
export class ConversionError extends Error {
  /**
   * failed: the library refused; usage: the call asks for what there isn't; input: a file can't be
   * read, or not as its type; output: what was made can't be kept, as when memory is short; crash:
   * the converter broke down, which is a fault of its own.
   */
  readonly code: "failed" | "usage" | "input" | "output" | "crash";
  /** The library's texts up to there. */
  readonly messages: string[];
}

export interface ConverterOptions {
  /** Where the module's two files are, if not beside this package's others. */
  module?: { script: string | URL; wasm: string | URL };
  /** Date and time that every call takes for now, and the first count of its ticks: for tests. */
  clock?: { time: Date; ticks: number };
}

/** One worker. Its calls are done in their order. */
export class Converter {
  constructor(options?: ConverterOptions);

  /** All types, in the order in which a user is shown them. */
  types(call?: CallOptions): Promise<TypeInfo[]>;

  /** By the name, and where types share an extension by the first bytes. */
  detect(name: string, bytes: Uint8Array | ArrayBuffer, call?: CallOptions): Promise<Detected>;

  /**
   * Converts one file. Rejects with a ConversionError, whose messages are the library's, if nothing
   * was made.
   */
  convert(request: ConvertRequest): Promise<Converted>;

  /**
   * Makes a job of a coordinate list, numbers as names. Units, scale and coordinate system don't
   * stand in a list.
   */
  importCr5(request: ImportCr5Request): Promise<Converted>;

  /**
   * Makes a raw log of an SDR file: job names, units, scale; collimation, atmosphere, prism and notes
   * as comments. Points, stations, backsights and observations are left out.
   */
  importSdr(request: ImportSdrRequest): Promise<Converted>;

  /**
   * Joins two jobs of one scale in a new one. Points of a name that both have are both in it;
   * attributes of points are left out.
   */
  merge(request: MergeRequest): Promise<Converted>;

  /** What a route carries and what it drops, before anything is converted. */
  losses(request: LossesRequest): Promise<Losses>;

  /** What a file holds: any type but JobXML, which is only written. */
  info(request: ReadRequest): Promise<Info>;

  /** The points of a file as features, whose coordinates are those of the file. */
  points(request: PointsRequest): Promise<Points>;

  /** The points of a file as a table. */
  pointsAsCsv(request: ReadRequest): Promise<PointsText>;

  /** A plan of what a file holds. */
  plot(request: ReadRequest): Promise<Plot>;

  /** What two files don't have in common, whatever their types. */
  diff(request: DiffRequest): Promise<Diff>;

  /**
   * Ends the worker; calls that are under way are rejected with code "failed". A later call starts
   * another.
   */
  close(): void;
}

/** As those of a Converter, of the one that this module shares. */
export function types(call?: CallOptions): Promise<TypeInfo[]>;
export function detect(
  name: string,
  bytes: Uint8Array | ArrayBuffer,
  call?: CallOptions,
): Promise<Detected>;
export function convert(request: ConvertRequest): Promise<Converted>;
export function importCr5(request: ImportCr5Request): Promise<Converted>;
export function importSdr(request: ImportSdrRequest): Promise<Converted>;
export function merge(request: MergeRequest): Promise<Converted>;
export function losses(request: LossesRequest): Promise<Losses>;
export function info(request: ReadRequest): Promise<Info>;
export function points(request: PointsRequest): Promise<Points>;
export function pointsAsCsv(request: ReadRequest): Promise<PointsText>;
export function plot(request: ReadRequest): Promise<Plot>;
export function diff(request: DiffRequest): Promise<Diff>;
export function close(): void;
