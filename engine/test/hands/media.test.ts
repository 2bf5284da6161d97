import { expect, test } from "bun:test";
import type { Language } from "../../src/base/language.ts";
import { Bus } from "../../src/hands/bus.ts";
import { mediaHands } from "../../src/hands/media.ts";
import type { Call } from "../../src/machine/busConnection.ts";
import { going } from "../support/processes.ts";

interface Player {
  status: string;
  metadata?: unknown;
}

/** A bus with these media players. */
class PlayersBus extends Bus {
  readonly calls: string[] = [];

  constructor(private readonly players: Record<string, Player>) {
    super({});
  }

  override async call({ service, method, arguments: given = [] }: Call): Promise<unknown[] | undefined> {
    const name = method.split(".").at(-1)!;
    if (name === "ListNames") return [["org.freedesktop.DBus", ":1.5", ...Object.keys(this.players).map((each) => `org.mpris.MediaPlayer2.${each}`)]];
    const player = this.players[service.split(".").at(-1)!];
    if (!player) return undefined;
    if (name !== "Get") this.calls.push(`${service.split(".").at(-1)} ${name}`);
    if (name !== "Get") return [];
    return given[1] === "PlaybackStatus" ? [{ type: "s", data: player.status }] : [{ type: "a{sv}", data: typeof player.metadata === "object" ? Object.entries(player.metadata ?? {}) : player.metadata }];
  }
}

function handsOf(players: Record<string, Player>, language: Language = "en") {
  const bus = new PlayersBus(players);
  const [media, playing] = mediaHands(bus);
  return { bus, act: (given: unknown) => media!.act(given, language, going), tell: () => playing!.act({}, language, going) };
}

const song = { "xesam:title": { type: "s", data: "Águas de Março" }, "xesam:artist": { type: "as", data: ["Elis", "Tom"] } };

test("the player that plays is the one that is meant", async () => {
  const { bus, act } = handsOf({ aaa: { status: "Stopped" }, bbb: { status: "Paused" }, ccc: { status: "Playing" } });
  expect(await act({ do: "pause" })).toBe("Done.");
  expect(await act({ do: "next" })).toBe("Done.");
  expect(bus.calls).toEqual(["ccc Pause", "ccc Next"]);
});

test("a paused player is played before one that was stopped", async () => {
  const { bus, act } = handsOf({ aaa: { status: "Stopped" }, bbb: { status: "Paused" } });
  await act({ do: "play" });
  expect(bus.calls).toEqual(["bbb Play"]);
});

test("what is playing is told", async () => {
  expect(await handsOf({ a: { status: "Playing", metadata: song } }).tell()).toBe("This is “Águas de Março”, by Elis, Tom.");
  expect(await handsOf({ a: { status: "Paused", metadata: song } }).tell()).toBe("It is paused at “Águas de Março”, by Elis, Tom.");
  for (const metadata of [undefined, {}, 5, { "xesam:title": 5 }]) {
    expect(await handsOf({ a: { status: "Playing", metadata } }).tell()).toBe("The player does not say what it plays.");
  }
});

test("without a player, or with nonsense, that is said", async () => {
  const { act, tell } = handsOf({});
  expect(await act({ do: "play" })).toBe("No player is open.");
  expect(await tell()).toBe("No player is open.");
  expect(await act({ do: "dance" })).toBe("I did not understand what to do.");
});

test("in Portuguese a player is one, too", async () => {
  expect(await handsOf({}, "pt").tell()).toBe("Nenhum player aberto.");
  expect(await handsOf({ a: { status: "Playing" } }, "pt").tell()).toBe("O player não diz o que toca.");
});
