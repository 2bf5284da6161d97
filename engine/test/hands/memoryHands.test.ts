import { expect, test } from "bun:test";
import type { Language } from "../../src/base/language.ts";
import { memoryHands } from "../../src/hands/memoryHands.ts";
import { Conversations } from "../../src/memory/conversations.ts";
import { Store } from "../../src/memory/store.ts";
import { ManualClock } from "../support/clock.ts";
import { temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";

const dayMs = 86_400_000;

/** It is Monday, 5 January 2026; yesterday there was a talk about the car. */
function remembering(language: Language = "en") {
  const clock = new ManualClock();
  const store = new Store(temporaryFolder(), () => {}, clock);
  const conversations = new Conversations(store, clock);
  const say = (question: string, answer: string): void => {
    conversations.add("user", question);
    conversations.showAnswer(answer);
    conversations.closeAnswer(5);
  };
  clock.time -= dayMs;
  say("When is the car due?", "On Friday.");
  say("Onde fica São Paulo?", "In Brazil.");
  clock.time += dayMs;
  conversations.begin();
  const [recall, forget] = memoryHands(conversations, clock);
  return {
    say,
    conversations,
    recall: (given: unknown) => recall!.act(given, language, going),
    forget: () => forget!.act({}, language, going),
  };
}

test("what was talked about in a week is found", async () => {
  const { recall } = remembering();
  expect(await recall({ day: "2025-12-29", days: 7, about: "car" })).toBe("In the week from December 29, 2025 you asked “When is the car due”.");
  expect(await recall({ day: "2025-12-28", days: 7 })).toBe("I find nothing in the week from December 28, 2025.");
  expect(await recall({ day: "2026-01-02", days: 3, about: "car" })).toBe("In the 3 days from January 2 you asked “When is the car due”.");
  expect(await remembering("pt").recall({ day: "2025-12-29", days: 7 })).toStartWith("Na semana de 29 de dezembro de 2025 você perguntou");
  for (const days of [0, 367, "7"]) expect(await recall({ day: "2025-12-29", days })).toBe("I did not understand what to search for.");
});

test("what was talked about on a day is found", async () => {
  const { recall } = remembering();
  expect(await recall({ day: "2026-01-04" })).toBe("Yesterday you asked “When is the car due” and “Onde fica São Paulo”.");
  expect(await recall({ day: "2026-01-03" })).toBe("I find nothing on January 3.");
  expect(await remembering("pt").recall({ day: "2026-01-04" })).toBe("Ontem você perguntou “When is the car due” e “Onde fica São Paulo”.");
});

test("words are found without their accents and endings, in what was asked first", async () => {
  const { recall } = remembering();
  expect(await recall({ about: "SAO paulo" })).toBe("Yesterday you asked “Onde fica São Paulo”.");
  expect(await recall({ about: "car" })).toBe("Yesterday you asked “When is the car due”.");
  expect(await recall({ about: "Brazil" })).toBe("Yesterday I said “In Brazil”.");
  expect(await recall({ about: "elephant", day: "2026-01-04" })).toBe("I find nothing about “elephant” yesterday.");
});

test("the question itself is not what is found", async () => {
  const { recall, say, conversations } = remembering();
  say("Hello", "Hello!");
  conversations.add("user", "what did we say about elephants");
  expect(await recall({ about: "elephants" })).toBe("I find nothing about “elephants”.");
});

test("words that mean something to the search are words", async () => {
  const { recall } = remembering();
  for (const about of ['"', "a OR b", "NEAR(x)", "car*", "text:car", "(", "-", "'; DROP TABLE rows"]) expect(await recall({ about })).toBeString();
  expect(await recall({ about: "due car" })).toContain("When is the car due");
  for (const given of [undefined, {}, { day: "soon" }, { about: "" }]) expect(await recall(given)).toBe("I did not understand what to search for.");
});

test("a conversation that is still on the disk is not said to be forgotten", async () => {
  for (const [language, said] of [["en", "This conversation is still on the disk"], ["pt", "Esta conversa ainda está no disco"]] as const) {
    const [, forget] = memoryHands({ search: () => [], forget: async () => false }, new ManualClock());
    expect(await forget!.act({}, language, going)).toStartWith(said);
  }
});

test("a conversation is forgotten, and nothing of it is found any more", async () => {
  const { recall, forget, say, conversations } = remembering();
  say("My secret is xylophone", "Noted.");
  expect(await recall({ about: "xylophone" })).not.toContain("nothing");
  expect(await forget()).toBe("I have forgotten this conversation.");
  expect(await recall({ about: "xylophone" })).toBe("I find nothing about “xylophone”.");
  expect(conversations.current.rows).toEqual([]);
  expect(conversations.history).toHaveLength(1);
  expect(conversations.memory).toEqual({ isResumed: false, journalDays: 1 });
});
