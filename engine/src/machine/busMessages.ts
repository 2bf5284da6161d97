// Messages of D-Bus as they go over the wire (its version 1, by freedesktop.org): written little-endian, by signature. A variant is `{type, data}`, an array and a structure are arrays, a dictionary is an array of pairs.

export interface Variant {
  type: string;
  data: unknown;
}

export interface Message {
  type: number;
  serial: number;
  path?: string;
  interface?: string;
  member?: string;
  error?: string;
  replySerial?: number;
  destination?: string;
  sender?: string;
  signature?: string;
  body: unknown[];
}

export const [methodCall, methodReturn, failure, signalKind] = [1, 2, 3, 4] as const;
/** A message may be longer by the protocol; no answer that is wanted here is. */
export const longestMessage = 4 << 20;

const alignments: Record<string, number> = { y: 1, g: 1, v: 1, n: 2, q: 2, b: 4, i: 4, u: 4, s: 4, o: 4, a: 4, x: 8, t: 8, d: 8, "(": 8, "{": 8 };
const deepest = 32;

/** The first complete type of a signature. */
function firstType(signature: string, depth = 0): string {
  const mark = signature[0] ?? "";
  if (depth > deepest || !(mark in alignments)) throw new Error(`not a type: ${signature}`);
  if (mark === "a") return `a${firstType(signature.slice(1), depth + 1)}`;
  if (mark !== "(" && mark !== "{") return mark;
  const close = mark === "(" ? ")" : "}";
  let length = 1;
  while (signature[length] !== close) length += firstType(signature.slice(length), depth + 1).length;
  return signature.slice(0, length + 1);
}

export function typesOf(signature: string): string[] {
  const types: string[] = [];
  for (let rest = signature; rest !== ""; rest = rest.slice(types.at(-1)!.length)) types.push(firstType(rest));
  return types;
}

class Writer {
  readonly bytes: number[] = [];

  align(to: number): void {
    while (this.bytes.length % to !== 0) this.bytes.push(0);
  }

  number(value: number | bigint, size: number, isFloat = false): void {
    this.align(size);
    const view = new DataView(new ArrayBuffer(8));
    if (isFloat) view.setFloat64(0, Number(value), true);
    else view.setBigInt64(0, BigInt(value), true);
    for (let at = 0; at < size; at++) this.bytes.push(view.getUint8(at));
  }

  text(value: string, lengthSize: number): void {
    const bytes = new TextEncoder().encode(value);
    this.number(bytes.length, lengthSize);
    this.bytes.push(...bytes, 0);
  }

  value(type: string, value: unknown): void {
    switch (type[0]) {
      case "y":
        return this.number(value as number, 1);
      case "b":
        return this.number(value ? 1 : 0, 4);
      case "n":
      case "q":
        return this.number(value as number, 2);
      case "i":
      case "u":
        return this.number(value as number, 4);
      case "x":
      case "t":
        return this.number(value as number, 8);
      case "d":
        return this.number(value as number, 8, true);
      case "s":
      case "o":
        return this.text(String(value), 4);
      case "g":
        return this.text(String(value), 1);
      case "v": {
        const variant = value as Variant;
        this.text(variant.type, 1);
        return this.value(variant.type, variant.data);
      }
      case "a":
        return this.array(type.slice(1), value as unknown[]);
      default:
        this.align(8);
        typesOf(type.slice(1, -1)).forEach((each, at) => this.value(each, (value as unknown[])[at]));
    }
  }

  array(type: string, values: readonly unknown[]): void {
    this.number(0, 4);
    const lengthAt = this.bytes.length - 4;
    this.align(alignments[type[0]!]!);
    const start = this.bytes.length;
    for (const value of values) this.value(type, value);
    const length = this.bytes.length - start;
    for (let at = 0; at < 4; at++) this.bytes[lengthAt + at] = (length >> (8 * at)) & 0xff;
  }
}

class Reader {
  at = 0;
  readonly #view: DataView;

  constructor(
    private readonly bytes: Uint8Array,
    private readonly isLittle: boolean,
  ) {
    this.#view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  }

  align(to: number): void {
    this.at = Math.ceil(this.at / to) * to;
  }

  uint(): number {
    this.align(4);
    this.at += 4;
    return this.#view.getUint32(this.at - 4, this.isLittle);
  }

  text(length: number): string {
    const end = this.at + length;
    if (end + 1 > this.bytes.length) throw new Error("a text goes beyond the message");
    const text = new TextDecoder().decode(this.bytes.subarray(this.at, end));
    this.at = end + 1;
    return text;
  }

  value(type: string, depth = 0): unknown {
    if (depth > deepest) throw new Error("too deep");
    this.align(alignments[type[0]!]!);
    const view = this.#view;
    const start = this.at;
    switch (type[0]) {
      case "y":
        return view.getUint8(this.at++);
      case "b":
        return this.uint() !== 0;
      case "n":
        return (this.at += 2), view.getInt16(start, this.isLittle);
      case "q":
        return (this.at += 2), view.getUint16(start, this.isLittle);
      case "i":
        return (this.at += 4), view.getInt32(start, this.isLittle);
      case "u":
        return this.uint();
      case "x":
        return (this.at += 8), Number(view.getBigInt64(start, this.isLittle));
      case "t":
        return (this.at += 8), Number(view.getBigUint64(start, this.isLittle));
      case "d":
        return (this.at += 8), view.getFloat64(start, this.isLittle);
      case "s":
      case "o":
        return this.text(this.uint());
      case "g":
        return this.text(view.getUint8(this.at++));
      case "v": {
        const signature = this.text(view.getUint8(this.at++));
        return { type: signature, data: this.value(firstType(signature), depth + 1) } satisfies Variant;
      }
      case "a": {
        const length = this.uint();
        const of = type.slice(1);
        this.align(alignments[of[0]!]!);
        const end = this.at + length;
        if (end > this.bytes.length) throw new Error("an array goes beyond the message");
        const values: unknown[] = [];
        while (this.at < end) values.push(this.value(of, depth + 1));
        return values;
      }
      default:
        return typesOf(type.slice(1, -1)).map((each) => this.value(each, depth + 1));
    }
  }
}

const fields = { path: [1, "o"], interface: [2, "s"], member: [3, "s"], error: [4, "s"], replySerial: [5, "u"], destination: [6, "s"], sender: [7, "s"], signature: [8, "g"] } as const;

export function encodeMessage(message: Message): Uint8Array {
  const body = new Writer();
  typesOf(message.signature ?? "").forEach((type, at) => body.value(type, message.body[at]));
  const head = new Writer();
  const written = Object.entries(fields).flatMap(([name, [code, type]]) => {
    const data = message[name as keyof typeof fields];
    return data === undefined || data === "" ? [] : [[code, { type, data }]];
  });
  head.value("y", "l".charCodeAt(0));
  head.value("y", message.type);
  head.value("y", 0);
  head.value("y", 1);
  head.value("u", body.bytes.length);
  head.value("u", message.serial);
  head.value("a(yv)", written);
  head.align(8);
  return Uint8Array.from([...head.bytes, ...body.bytes]);
}

/** Gives the first message of these bytes and its length, or undefined when it is not whole. Throws for what is no message. */
export function decodeMessage(bytes: Uint8Array): { message: Message; length: number } | undefined {
  if (bytes.length < 16) return undefined;
  const isLittle = bytes[0] === "l".charCodeAt(0);
  if (!isLittle && bytes[0] !== "B".charCodeAt(0)) throw new Error("no message");
  const view = new DataView(bytes.buffer, bytes.byteOffset, bytes.byteLength);
  const [bodyLength, serial, headLength] = [4, 8, 12].map((at) => view.getUint32(at, isLittle)) as [number, number, number];
  const bodyAt = Math.ceil((16 + headLength) / 8) * 8;
  const length = bodyAt + bodyLength;
  if (length > longestMessage) throw new Error("a message is too long");
  if (bytes.length < length) return undefined;
  const head = new Reader(bytes.subarray(0, bodyAt), isLittle);
  head.at = 12;
  const message: Message = { type: bytes[1]!, serial, body: [] };
  for (const [code, value] of head.value("a(yv)") as [number, Variant][]) {
    const name = Object.entries(fields).find(([, [known]]) => known === code)?.[0];
    if (name !== undefined) Object.assign(message, { [name]: value.data });
  }
  const body = new Reader(bytes.subarray(bodyAt, length), isLittle);
  message.body = typesOf(message.signature ?? "").map((type) => body.value(type));
  return { message, length };
}
