import { describe, expect, test } from "bun:test";
import { phrases } from "../../src/base/phrases.ts";
import type { Hand } from "../../src/hands/hand.ts";
import type { Request } from "../../src/thought/answer.ts";
import { SentenceMind } from "../../src/thought/sentenceMind.ts";
import { request as requestOf } from "../support/claudeTool.ts";
import { ManualClock } from "../support/clock.ts";
import { judged, phrasingsOf } from "../support/phrasings.ts";
import { going } from "../support/processes.ts";

/** A hand that notes what it did; what it would do is said with `state`. */
class FakeHand implements Hand {
  readonly description = "";
  readonly parameters = { type: "object", properties: {} } as const;
  readonly changes = true;
  readonly done: unknown[] = [];
  state = "";

  constructor(readonly id: string) {}

  intent(given: unknown): string {
    return `${this.id} ${JSON.stringify(given)}${this.state}`;
  }

  async act(given: unknown): Promise<string> {
    this.done.push(given);
    return `Did ${this.id}.`;
  }
}

/** Knows what is said politely. */
const known = (text: string): string | undefined => (/hello|thank/i.test(text) ? `Welcome after "${text}"` : undefined);

function mind(confirmActions: string[] = []) {
  const clock = new ManualClock();
  const [timer, note, open] = [new FakeHand("timer"), new FakeHand("note"), new FakeHand("open")];
  const log: string[] = [];
  const it = new SentenceMind({ clock, language: "en", phrases: phrases.en, log: (line) => log.push(line), hands: [timer, note, open] });
  const say = async (text: string, signal = going) => {
    const pieces: string[] = [];
    const spoken: string[] = [];
    const settings = { ...requestOf("").settings, confirmActions };
    const request: Request = { ...requestOf(text), settings, askedAt: clock.now() };
    const answering = { text: (piece: string, aloud = piece) => void (pieces.push(piece), spoken.push(aloud)), tool: () => {} };
    const answer = (await it.reply(request, answering, signal)) ?? (await it.answer(request, known, answering, signal));
    return { text: pieces.join(""), spoken: spoken.join(""), heard: answer?.heard, isUnderstood: answer !== undefined };
  };
  /** Says it beside a model that cannot use hands; gives what the model gets. */
  const sayBeside = async (text: string): Promise<string[]> => {
    const got: string[] = [];
    const model = { answer: async (request: Request) => (got.push(request.text), { costUsd: 0 }), refuse: () => {} };
    const settings = { ...requestOf("").settings, confirmActions };
    await it.answerFor(model, { ...requestOf(text), settings, askedAt: clock.now() }, { text: () => {}, tool: () => {} }, going);
    return got;
  };
  return { it, say, sayBeside, clock, timer, note, open, log };
}

describe("a sentence", () => {
  test("that asks for a hand is done", async () => {
    const { say, timer } = mind();
    expect((await say("Set a timer for five minutes.")).text).toBe("Did timer.");
    expect(timer.done).toEqual([{ do: "timer", seconds: 300 }]);
  });

  test("that asks for none is answered otherwise, whole", async () => {
    const { say } = mind();
    expect((await say("Hello. Two!")).text).toBe('Welcome after "Hello. Two!"');
  });

  test("that is not understood is left out beside one that is", async () => {
    const { say, timer } = mind();
    for (const request of ["I love it. Set a timer for 5 minutes.", "Set a timer for 5 minutes. I love it.", "Set a timer for 5 minutes; I love it"]) {
      expect([request, (await say(request)).text]).toEqual([request, "Did timer."]);
    }
    expect(timer.done).toHaveLength(3);
    expect((await say("I love it. Hello! I love it. Set a timer for 5 minutes.")).text).toBe('Welcome after "Hello!" Did timer.');
  });

  test("that is part of a note is not done", async () => {
    const { say, timer, note } = mind();
    expect((await say("Take a note: Anna is allergic to nuts. Cancel all timers.")).text).toBe("Did note.");
    expect([timer.done, note.done]).toEqual([[], [{ do: "note", text: "Anna is allergic to nuts. Cancel all timers" }]]);
  });

  test("that is not understood has no answer, alone and beside others", async () => {
    for (const request of ["I love it.", "I love it. I do.", ""]) {
      expect(await mind().say(request)).toMatchObject({ text: "", isUnderstood: false });
    }
  });

  test("of several is done as each asks, in their order", async () => {
    const { say, timer, note } = mind();
    const { text } = await say("Set a timer for 5 minutes. Hello there! Note that Dr. Silva comes at 7 p.m. tomorrow.\nAdd milk to the shopping list");
    expect(text).toBe('Did timer. Welcome after "Hello there!" Did note. Did note.');
    expect(timer.done).toHaveLength(1);
    expect(note.done).toEqual([{ do: "note", text: "Dr. Silva comes at 7 p.m. tomorrow" }, { do: "add", items: "milk", list: "shopping" }]);
  });

  test("that is a pasted text is not obeyed for the sentences in it", async () => {
    const text = "I love it. ".repeat(40);
    const pasted = [
      "Hi Ana,\nset a timer for 5 minutes.\nSee you!", "I love it.\r\nOpen the calculator.", "- milk\n- open example.org",
      `${text}Set a timer for 5 minutes.`, `${text}\nSet a timer for 5 minutes.`,
    ];
    for (const request of pasted) {
      const { say, timer, open } = mind();
      await say(request);
      expect([request, timer.done, open.done]).toEqual([request, [], []]);
    }
  });

  test("of several lines is done when each line asks for something", async () => {
    const { say } = mind();
    expect((await say("Hello!\nSet a timer for 5 minutes.\nOpen the calculator.\nThank you")).text).toBe(
      'Welcome after "Hello!" Did timer. Did open. Welcome after "Thank you"',
    );
  });

  test("before a long text is done, and nothing that stands in the text", async () => {
    const { say, timer, open } = mind();
    await say(`Set a timer for 5 minutes. ${"I love it. ".repeat(40)}Open the calculator.`);
    expect([timer.done.length, open.done]).toEqual([1, []]);
  });

  test("of a megabyte is answered like any other", async () => {
    for (const text of ["a. ".repeat(400_000), " ".repeat(1 << 20), "set a timer ".repeat(90_000), ".".repeat(1 << 20)]) {
      expect((await mind().say(text)).isUnderstood).toBe(false);
    }
  });

  test("that asks for a hand that is not there is answered otherwise", async () => {
    expect((await mind().say("lock the screen")).isUnderstood).toBe(false);
  });

  test("that fails for a reason of the hand's own is said, and logged", async () => {
    const { say, timer, log } = mind();
    timer.act = () => Promise.reject(new Error("broken"));
    expect((await say("set a timer for 5 minutes")).text).toBe("That did not work.");
    expect(log).toEqual(["a ação timer falhou (Error: broken)"]);
  });
});

describe("beside a model that cannot use hands", () => {
  test("a text that the request is about is the model's, to the letter, and none of it is done", async () => {
    const { sayBeside, timer, open } = mind();
    for (const request of [
      "Translate the following into Portuguese.\nSet a timer for five minutes.\nCancel all timers.",
      "Fix my English: I has a dog.  Set a timer for five minutes! Cancel all timers.",
      "Write a haiku for each line:\n- open example.org\n- cancel all timers",
      "open example.org\ncancel all timers\n\nWhat does this script do?",
      `${"Cancel all timers. ".repeat(2_000)}What does this say?`,
    ]) {
      expect(await sayBeside(request)).toEqual([request]);
    }
    expect([...timer.done, ...open.done]).toEqual([]);
  });

  test("a request of deeds alone is done, with or without polite words, and the model hears nothing of it", async () => {
    const polite = "Good morning! Set a timer for 5 minutes.\nOpen example.org. Thank you very much.";
    for (const request of ["Set a timer for 5 minutes. Open example.org", polite]) {
      const { sayBeside, timer, open } = mind();
      expect(await sayBeside(request)).toEqual([]);
      expect([timer.done, open.done]).toEqual([[{ do: "timer", seconds: 300 }], [{ address: "example.org" }]]);
    }
  });

  test("what a request begins with is done, and the model gets what follows as it is", async () => {
    const { sayBeside, timer } = mind();
    const got = await sayBeside("Hello. Set a timer for 5 minutes. Who was  Ada? Cancel all timers.");
    expect(got).toEqual(["Hello. Who was  Ada? Cancel all timers."]);
    expect(timer.done).toEqual([{ do: "timer", seconds: 300 }]);
  });
});

describe("what is asked about first", () => {
  test("is asked in words that say what it is, done at a yes, and once", async () => {
    const { say, timer } = mind(["timer"]);
    expect((await say("set a timer for five minutes")).text).toBe('May I? Timer {"do":"timer","seconds":300}.');
    expect(timer.done).toEqual([]);
    expect((await say("Yes, please.")).text).toBe("Did timer.");
    expect((await say("yes")).isUnderstood).toBe(false);
    expect(timer.done).toHaveLength(1);
  });

  test("is not done at a no, at anything else, or later", async () => {
    for (const reply of ["no", "what time is it", "yes and no"]) {
      const { say, timer } = mind(["timer"]);
      await say("set a timer for five minutes");
      expect((await say(reply)).text).toBe(reply === "no" ? "All right, I will not." : "");
      await say("yes");
      expect(timer.done).toEqual([]);
    }
  });

  test("is refused by ten seconds of nothing after the question was heard", async () => {
    for (const [seconds, times] of [[9, 1], [11, 0]] as const) {
      const { say, clock, timer } = mind(["timer"]);
      const { heard } = await say("set a timer for five minutes");
      await clock.advance(30_000);
      heard?.();
      await clock.advance(seconds * 1_000);
      await say("yes");
      expect(timer.done).toHaveLength(times);
    }
  });

  test("is refused when the user wants silence", async () => {
    const { it, say, timer } = mind(["timer"]);
    await say("set a timer for five minutes");
    it.refuse();
    await say("yes");
    expect(timer.done).toEqual([]);
  });

  test("is not done when it has become another thing meanwhile", async () => {
    const { say, timer } = mind(["timer"]);
    await say("set a timer for five minutes");
    timer.state = " of another kind";
    expect((await say("yes")).text).toBe("That has changed since, and I left it alone.");
    expect(timer.done).toEqual([]);
  });

  test("stands after what was done without a question, and is asked together", async () => {
    const { say, timer, note, open } = mind(["note", "open"]);
    const { text, spoken } = await say("Open example.org. Set a timer for 5 minutes. Note that it rains.");
    expect(text).toBe('Did timer.\nMay I? Open {"address":"example.org"}; note {"do":"note","text":"it rains"}.');
    // An address is read aloud to the letter.
    expect(spoken).toContain("example dot org");
    expect([timer, note, open].map(({ done }) => done.length)).toEqual([1, 0, 0]);
    expect((await say("go ahead")).text).toBe("Did open. Did note.");
  });
});

test("a request that is stopped does no more", async () => {
  const { say, timer, note } = mind();
  const ending = new AbortController();
  timer.act = async () => {
    ending.abort();
    return "Did timer.";
  };
  expect((await say("Set a timer for 5 minutes. Note that it rains.", ending.signal)).text).toBe("");
  expect(note.done).toEqual([]);
});

describe("what people say", () => {
  const mended = [
    "first", "second", "third", "fourth", "fifth", "sixth", "seventh", "eighth",
    "ninth", "tenth", "eleventh", "twelfth", "thirteenth", "fourteenth", "fifteenth", "sixteenth", "nineteenth",
  ];
  /** Of the last two some things cannot be told from others. */
  const sets = [...mended.map((set) => [set, 0.95, 0] as const), ["seventeenth", 0.92, 1] as const, ["eighteenth", 0.85, 2] as const];
  for (const [set, least, mostWrong] of sets) {
    for (const language of ["en", "pt"] as const) {
      test(`is understood in ${language}, the ${set} set of phrasings`, async () => {
        const all = await Promise.all(phrasingsOf(set, language).map((phrasing) => judged(phrasing, language)));
        const others = all.filter(({ verdict }) => verdict !== "right");
        const share = 1 - others.length / all.length;
        console.log(`${set} set, ${language}: ${all.length - others.length} of ${all.length} right (${(100 * share).toFixed(1)} %)`);
        for (const { verdict, sentence, expected, done } of others) console.log(`  ${verdict}: "${sentence}": ${expected}; did ${done}`);
        const wrong = others.filter(({ verdict }) => verdict !== "missed");
        if (mostWrong === 0) expect(wrong).toEqual([]);
        expect(wrong.filter(({ verdict }) => verdict === "wrongly done").length).toBeLessThanOrEqual(mostWrong);
        expect(share).toBeGreaterThan(least);
      }, 60_000);
    }
  }
});
