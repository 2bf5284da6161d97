// The tokens of a recogniser, as texts. A text is cut into tokens by joining the pair of pieces that makes the token of
// the lowest number, over and over: the tokens are numbered in the order in which they were learned (byte pair encoding:
// Sennrich et al., "Neural machine translation of rare words with subword units", ACL 2016).

/** Begins a word in the text of a token. */
const blank = "▁";
/** The first tokens end and begin a text, and stand for what is unknown; those of the 256 bytes follow. */
const firstByte = 3;
const firstText = firstByte + 256;

/** A text ends with it; and one begins with it. */
export const endToken = 2;
export const beginToken = 1;

export class Vocabulary {
  readonly #numbers: Map<string, number>;

  /** Throws when this is no list of tokens. */
  constructor(private readonly texts: readonly string[]) {
    if (!Array.isArray(texts) || texts.length <= firstText || !texts.every((text) => typeof text === "string")) {
      throw new Error("the vocabulary is no list of texts");
    }
    this.#numbers = new Map(texts.map((text, token) => [text, token] as const).slice(firstText));
  }

  tokensOf(text: string): number[] {
    let pieces = [...`${blank}${text.replaceAll(" ", blank)}`];
    for (;;) {
      const at = this.#bestPair(pieces);
      if (at === undefined) break;
      pieces = [...pieces.slice(0, at), `${pieces[at]}${pieces[at + 1]}`, ...pieces.slice(at + 2)];
    }
    return pieces.flatMap((piece) => {
      const token = this.#numbers.get(piece);
      return token === undefined ? [...new TextEncoder().encode(piece)].map((byte) => firstByte + byte) : [token];
    });
  }

  /** The token of exactly this text. */
  tokenOf(text: string): number | undefined {
    return this.#numbers.get(text);
  }

  textOf(tokens: readonly number[]): string {
    const bytes = tokens.flatMap((token) => {
      const text = this.texts[token];
      if (text === undefined || token < firstByte) return [];
      return token < firstText ? [token - firstByte] : [...new TextEncoder().encode(text.replaceAll(blank, " "))];
    });
    return new TextDecoder().decode(Uint8Array.from(bytes));
  }

  /** The token begins a word. */
  beginsWord(token: number): boolean {
    return token >= firstText && (this.texts[token]?.startsWith(blank) ?? false);
  }

  /** The token is punctuation and nothing more. */
  isMark(token: number): boolean {
    return token >= firstText && /^[^\p{L}\p{N}▁]+$/u.test(this.texts[token] ?? "");
  }

  #bestPair(pieces: string[]): number | undefined {
    let best: number | undefined;
    let lowest = Infinity;
    for (let at = 0; at + 1 < pieces.length; at++) {
      const token = this.#numbers.get(`${pieces[at]}${pieces[at + 1]}`);
      if (token === undefined || token >= lowest) continue;
      lowest = token;
      best = at;
    }
    return best;
  }
}
