// Finds the agent's name in what was heard. A recogniser writes a name that it does not know as words that it knows: "Palomet"
// as "Pal, I'm it". So the name is put in the place of words, where people put it, and the decoder is asked how much less
// likely it finds that. The name was said when that is little. The decoder has a taste of its own, by which it finds a common
// name likelier than a rarer word that was said: part of this advantage is taken off (after the density ratio method:
// McDermott et al., "A density ratio approach to language model fusion in end-to-end automatic speech recognition", ASRU
// 2019). A name that the decoder knows is written when it is heard, and may lose little; a rare one may lose more, and its
// vowels may be others.

import type { Tensor } from "onnxruntime-common";
import type { Transcript } from "./decoding.ts";
import { likelihood, type Expectation, type Past, type SpeechModel } from "./speechModel.ts";
import { hasMark, wordsOf, type SpelledWord } from "./spelledWords.ts";
import { capitalised, treeOf, variantsOf, type SpellingTree } from "./spellings.ts";
import { syllablesOf } from "./syllables.ts";
import type { Taste } from "./taste.ts";
import { beginToken, endToken, type Vocabulary } from "./vocabulary.ts";

/** The name in the place of the tokens from `start` up to `end`. */
export interface Naming {
  start: number;
  end: number;
  /** The name as it is set, after the word of a call if that was misheard as well. */
  text: string;
  /** It begins the utterance, or follows a pause or the word of a call. */
  isSetOff: boolean;
  /** What the decoder expects after the name. */
  after: Followed;
}

interface Followed {
  expected: Expectation[];
  past: Past;
}

/** All of these are logarithms of probabilities. A name was not said where it is less likely than this to begin, ... */
const leastBegin = -12;
/** ... or where all of it is less likely than this. */
const leastName = -18;
/** Most that the decoder may find the name less likely before its taste is looked at. */
const mostLoss = 12;
const tasteShare = 0.5;
const mostTaste = 3;
const mostRareTaste = 1.5;
/** What a common name of one word may lose, and what each further word allows. */
const commonLoss = 3;
const lossAWord = 2.5;
/** What the decoder finds a common word unlikely by taste. A name's rarity is what it finds that name unlikely beyond its words. */
const wordRarity = 14.5;
/** Up to here a name is common. All rarity beyond it allows this share of it. */
const commonRarity = 3;
const lossARarity = 2 / 3;
/** A rarer name is looked for with other vowels as well, and may lose so much at least. */
const leastRarity = 6;
const rareLoss = 10.3;
/** A name that no pause sets off may lose this share of it: what ends a sentence without one is mostly a part of it. */
const joinedShare = 0.5;
/**
 * So much may one in whose place words of fewer syllables were heard: a decoder that does not know a name writes down all of its
 * sound.
 */
const shorterShare = 0.6;
/**
 * A name is heard as at most so many words more than it has, and so many letters for each of its own, and some more: "Palomet"
 * as "Pearl omelette", half of whose letters are silent.
 */
const extraWords = 3;
const lettersALetter = 2;
const extraLetters = 2;
/** So many tokens after the name show whether it fits. */
const tailTokens = 3;
/** The likeliest ends of what was heard for a name, of which each is looked at. */
const endsTried = 2;

interface Spelling {
  tree: SpellingTree;
  /** What it stands for in the text. */
  text: string;
  allowed: number;
  mostTaste: number;
  mostWords: number;
  mostLetters: number;
  /** It holds a word of a call: it begins the utterance. */
  isCall: boolean;
}

interface Found {
  naming: Naming;
  loss: number;
}

/** A spelling that was followed through the tree. */
interface Spelled {
  tokens: number[];
  likelihood: number;
  after: Followed;
}

export class NameFinder {
  readonly #spelled = new Map<string, Promise<Spelling[]>>();

  constructor(
    private readonly model: SpeechModel,
    private readonly vocabulary: Vocabulary,
    private readonly taste: Taste,
  ) {}

  /** Gives undefined when none of the names was said, or the signal is raised. */
  async find(features: Tensor, heard: Transcript, names: string[], calls: string[], signal: AbortSignal): Promise<Naming | undefined> {
    const words = wordsOf(heard.tokens, this.vocabulary);
    const isCalled = words[0] !== undefined && calls.includes(this.#textOf(heard, words[0].start, words[0].end).toLowerCase());
    let best: Found | undefined;
    for (const name of names) {
      for (const spelling of await this.#spellings(name, isCalled ? [] : calls)) {
        for (const place of places(words, heard.tokens, spelling, isCalled)) {
          if (signal.aborted) return undefined;
          const short = place.ends.filter((end) => lettersOf(this.#textOf(heard, place.start, end)) <= spelling.mostLetters);
          const found = short.length > 0 ? await this.#tryAt(features, heard, { ...place, ends: short }, spelling) : undefined;
          if (!found || found.loss >= (best?.loss ?? Infinity)) continue;
          const shorter = isShorter(this.#textOf(heard, place.start, found.naming.end), spelling.text) ? shorterShare : 1;
          if (found.loss <= Math.min(shorter, place.isSetOff ? 1 : joinedShare) * spelling.allowed) best = found;
        }
      }
    }
    return best?.naming;
  }

  #spellings(name: string, calls: string[]): Promise<Spelling[]> {
    const key = JSON.stringify([name, calls]);
    const known = this.#spelled.get(key) ?? this.#spell(name, calls);
    // A user who changes the name does so now and then, and no program asks for thousands.
    if (this.#spelled.size > 1_000) this.#spelled.clear();
    this.#spelled.set(key, known);
    return known;
  }

  async #spell(name: string, calls: string[]): Promise<Spelling[]> {
    const capital = capitalised(name);
    const words = name.split(/\s+/).length;
    const rarity = -(await this.taste.of([], this.vocabulary.tokensOf(capital))) - words * wordRarity;
    const isRare = rarity > leastRarity;
    const byRarity = lossARarity * Math.max(0, rarity - commonRarity);
    const allowed = Math.max(commonLoss + byRarity, isRare ? rareLoss : 0) + (words - 1) * lossAWord;
    const forms = isRare ? [...variantsOf(capital)] : [capital, name];
    const spelling = (text: string, spelled: string[], isCall: boolean): Spelling => ({
      tree: treeOf(spelled, this.vocabulary),
      text,
      allowed,
      mostTaste: isRare ? mostRareTaste : mostTaste,
      mostWords: words + (isCall ? 1 : 0) + extraWords,
      mostLetters: lettersALetter * lettersOf(spelled[0]!) + extraLetters,
      isCall,
    });
    const called = calls.map(capitalised).map((call) => spelling(`${call} ${name}`, forms.map((form) => `${call} ${form}`), true));
    return [spelling(name, forms, false), ...called];
  }

  /** Puts a spelling in a place, up to one of its ends. */
  async #tryAt(features: Tensor, heard: Transcript, { start, ends, isSetOff }: Place, spelling: Spelling): Promise<Found | undefined> {
    const spelled = await this.#follow(features, heard, start, spelling.tree);
    if (spelled === undefined) return undefined;
    const { tokens, after } = spelled;
    const [last] = after.expected as [Expectation];
    const own = (from: number, to: number): number => likelihood(heard.tokens.slice(from, to), heard.expected.slice(from));
    const losses = ends.map((end) => {
      const next = heard.tokens[end];
      return { end, loss: own(start, end + 1) - spelled.likelihood - (next === undefined ? 0 : last.of(next)) };
    });
    const likeliest = losses.sort((a, b) => a.loss - b.loss).slice(0, endsTried).filter(({ loss }) => loss <= mostLoss);
    const prefix = heard.tokens.slice(0, start);
    let best: Found | undefined;
    for (const { end } of likeliest) {
      const tail = heard.tokens.slice(end, end + tailTokens);
      const follows = tail.length > 1 ? (await this.model.follow(features, tail.slice(0, -1), after.past)).expected : [];
      const loss = own(start, end + tail.length) - spelled.likelihood - likelihood(tail, [last, ...follows]);
      if (loss > mostLoss || loss >= (best?.loss ?? Infinity)) continue;
      const advantage =
        (await this.taste.of(prefix, [...tokens, ...tail])) - (await this.taste.of(prefix, heard.tokens.slice(start, end + tail.length)));
      const taken = Math.min(spelling.mostTaste, Math.max(0, tasteShare * advantage));
      if (loss + taken < (best?.loss ?? Infinity)) best = { naming: { start, end, text: spelling.text, isSetOff, after }, loss: loss + taken };
    }
    return best;
  }

  /** Finds the likeliest spelling of a tree, the likelier branches first. */
  async #follow(features: Tensor, heard: Transcript, start: number, tree: SpellingTree): Promise<Spelled | undefined> {
    const before = (): Past | undefined => (start === 0 ? undefined : this.model.cut(heard.past, start));
    const first = heard.expected[start]!;
    interface Branch {
      tree: SpellingTree;
      tokens: number[];
      likelihood: number;
      /** The past before the last token. */
      past: Past | undefined;
    }
    const grown = (of: Omit<Branch, "tree">, expected: Expectation, from: SpellingTree): Branch[] =>
      [...from.next].map(([token, next]) => ({ tree: next, tokens: [...of.tokens, token], likelihood: of.likelihood + expected.of(token), past: of.past }));
    let branches = grown({ tokens: [], likelihood: 0, past: undefined }, first, tree).filter((branch) => branch.likelihood >= leastBegin);
    let found: Spelled | undefined;
    while (branches.length > 0) {
      branches.sort((a, b) => b.likelihood - a.likelihood);
      const branch = branches.shift()!;
      if (branch.likelihood < Math.max(leastName, found?.likelihood ?? -Infinity)) break;
      const isBegun = branch.tokens.length > 1;
      const fed = isBegun ? branch.tokens.slice(-1) : [heard.tokens[start - 1] ?? beginToken, ...branch.tokens];
      const after = await this.model.follow(features, fed, isBegun ? branch.past : before());
      const expected = after.expected.at(-1)!;
      if (branch.tree.isEnd) found = { tokens: branch.tokens, likelihood: branch.likelihood, after: { expected: [expected], past: after.past } };
      branches.push(...grown({ ...branch, past: after.past }, expected, branch.tree));
    }
    return found;
  }

  #textOf({ tokens }: Transcript, start: number, end: number): string {
    return this.vocabulary.textOf(tokens.slice(start, end)).trim();
  }
}

interface Place {
  start: number;
  ends: number[];
  /** It begins the utterance, or follows a pause or the word of a call. */
  isSetOff: boolean;
}

/** The places where people put a name: first, last, or between two pauses. */
function places(words: SpelledWord[], tokens: number[], { mostWords, isCall }: Spelling, isCalled: boolean): Place[] {
  const found = words.slice(0, isCall ? 1 : undefined).map(({ start }, at) => {
    const isSetOff = at === 0 || (at === 1 && isCalled) || hasMark(words[at - 1]);
    const possible = words.slice(at, at + mostWords).filter((word) => isSetOff || hasMark(word) || word === words.at(-1));
    return { start, ends: possible.map(({ end }) => end), isSetOff };
  });
  // The decoder may have left out a name that was said last.
  const last = tokens.length - 1;
  return words.length > 0 && !isCall && tokens[last] === endToken ? [...found, { start: last, ends: [last], isSetOff: hasMark(words.at(-1)) }] : found;
}

function lettersOf(text: string): number {
  return text.match(/[\p{L}\p{N}]/gu)?.length ?? 0;
}

/** What was heard has fewer syllables than the name. Where nothing was heard, the decoder has left out what was said. */
function isShorter(heard: string, name: string): boolean {
  return heard !== "" && syllablesOf(heard) < syllablesOf(name);
}
