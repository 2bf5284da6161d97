import { afterEach, expect, test } from "bun:test";
import type { Language } from "../../src/base/language.ts";
import { Bus } from "../../src/hands/bus.ts";
import { mediaHands } from "../../src/hands/media.ts";
import type { Variant } from "../../src/machine/busMessages.ts";
import { MediaPlayer } from "../support/desktopServices.ts";
import { privateBus } from "../support/privateBus.ts";
import { going } from "../support/processes.ts";

const players: MediaPlayer[] = [];
afterEach(async () => void (await Promise.all(players.splice(0).map((player) => player.close()))));

async function open(called: string, status: string, metadata?: Variant): Promise<MediaPlayer> {
  const player = await MediaPlayer.open(called, status, metadata);
  players.push(player);
  return player;
}

async function hands(language: Language = "en") {
  const [media, playing] = mediaHands(new Bus(await privateBus()));
  return { act: (what: string) => media!.act({ do: what }, language, going), tell: () => playing!.act({}, language, going) };
}

const song: Variant = {
  type: "a{sv}",
  data: [["xesam:title", { type: "s", data: "Águas de Março" }], ["xesam:artist", { type: "as", data: ["Elis", "Tom"] }]],
};

test("the player that plays is the one that is meant", async () => {
  const [stopped, paused, playing] = [await open("aaa", "Stopped"), await open("bbb", "Paused"), await open("ccc.instance7", "Playing")];
  const { act } = await hands();
  for (const what of ["pause", "next", "previous", "play"]) expect(await act(what)).toBe("Done.");
  expect(playing.calls).toEqual(["Pause", "Next", "Previous", "Play"]);
  expect([...stopped.calls, ...paused.calls]).toEqual([]);
});

test("a paused player is played before one that was stopped", async () => {
  const [stopped, paused] = [await open("aaa", "Stopped"), await open("bbb", "Paused")];
  await (await hands()).act("play");
  expect([stopped.calls, paused.calls]).toEqual([[], ["Play"]]);
});

test("a player that does not do it is said not to answer", async () => {
  const player = await open("aaa", "Playing");
  player.isStubborn = true;
  expect(await (await hands()).act("pause")).toBe("The player did not answer.");
  expect(await (await hands("pt")).act("pause")).toBe("O player não respondeu.");
});

test("what is playing is told", async () => {
  const told = async (status: string, metadata?: Variant): Promise<string> => {
    const player = await MediaPlayer.open("aaa", status, metadata);
    const said = await (await hands()).tell();
    await player.close();
    return said;
  };
  expect(await told("Playing", song)).toBe("This is “Águas de Março”, by Elis, Tom.");
  expect(await told("Paused", song)).toBe("It is paused at “Águas de Março”, by Elis, Tom.");
  const untitled = { type: "a{sv}", data: [["xesam:title", { type: "i", data: 5 }]] };
  for (const metadata of [undefined, { type: "a{sv}", data: [] }, { type: "i", data: 5 }, untitled]) {
    expect(await told("Playing", metadata)).toBe("The player does not say what it plays.");
  }
});

test("without a player, or with nonsense, that is said", async () => {
  const { act, tell } = await hands();
  expect(await act("play")).toBe("No player is open.");
  expect(await tell()).toBe("No player is open.");
  expect(await act("dance")).toBe("I did not understand what to do.");
});

test("in Portuguese a player is one, too", async () => {
  const { tell } = await hands("pt");
  expect(await tell()).toBe("Nenhum player aberto.");
  await open("a", "Playing");
  expect(await tell()).toBe("O player não diz o que toca.");
});
