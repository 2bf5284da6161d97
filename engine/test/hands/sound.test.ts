import { expect, test } from "bun:test";
import { readFileSync } from "node:fs";
import { join } from "node:path";
import { SoundHand } from "../../src/hands/sound.ts";
import { Children } from "../../src/machine/children.ts";
import { program, temporaryFolder } from "../support/folders.ts";
import { going } from "../support/processes.ts";

/** A `pactl` that keeps its volume in a file. */
function server(volume = "40", mute = "no") {
  const folder = temporaryFolder();
  program(
    "pactl",
    `cd ${folder}; [ -f volume ] || echo ${volume} > volume; [ -f mute ] || echo ${mute} > mute
     case $1 in
       get-sink-volume) echo "Volume: front-left: 26214 / $(/bin/cat volume)% / -23.88 dB, front-right: 26214 / $(/bin/cat volume)%";;
       get-sink-mute) echo "Mute: $(/bin/cat mute)";;
       set-sink-volume) v=$3; echo "\${v%\\%}" > volume;;
       set-sink-mute) if [ "$3" = 1 ]; then echo yes > mute; else echo no > mute; fi;;
     esac`,
    folder,
  );
  return folder;
}

function hand(path: string) {
  const voice = { percent: 100 };
  const it = new SoundHand(new Children({ PATH: path }), voice);
  return { voice, act: (given: unknown) => it.act(given, "en", going), intent: (given: unknown) => it.intent(given, "en") };
}

test("the volume of the system is told, set, and turned up and down within its bounds", async () => {
  const folder = server();
  const { act } = hand(folder);
  expect(await act({ of: "system" })).toBe("The volume is at 40%.");
  expect(await act({ of: "system", to: 70 })).toBe("The volume is at 70%.");
  expect(await act({ of: "system", by: 10 })).toBe("The volume is at 80%.");
  expect(await act({ of: "system", by: 50 })).toBe("The volume is at 100%.");
  expect(await act({ of: "system", by: -100 })).toBe("The volume is at 0%.");
  expect(readFileSync(join(folder, "volume"), "utf8").trim()).toBe("0");
});

test("the sound is turned off and on, and is on when it is turned up", async () => {
  const { act } = hand(server());
  expect(await act({ of: "system", mute: true })).toBe("The sound is off.");
  expect(await act({ of: "system", by: -10 })).toBe("The sound is off.");
  expect(await act({ of: "system", by: 10 })).toBe("The volume is at 40%.");
});

test("a system without pactl is reached by wpctl", async () => {
  const folder = program("wpctl", `case $1 in get-volume) echo "Volume: 0.35";; *) echo "$@" >> ${"$0"}.calls;; esac`);
  expect(await hand(folder).act({ of: "system", to: 50 })).toBe("The volume is at 35%.");
  expect(readFileSync(join(folder, "wpctl.calls"), "utf8")).toBe("set-volume @DEFAULT_AUDIO_SINK@ 50%\n");
});

test("where there is no sound server that is said", async () => {
  expect(await hand("").act({ of: "system", to: 50 })).toBe("I cannot reach the volume here.");
});

test("the voice has a volume of its own", async () => {
  const { act, voice } = hand("");
  expect(await act({ of: "voice", by: -30 })).toBe("My voice is at 70%.");
  expect(await act({ of: "voice", to: 20 })).toBe("My voice is at 20%.");
  expect(voice.percent).toBe(20);
});

test("what makes no sense is refused", async () => {
  const { act, intent, voice } = hand("");
  for (const given of [null, {}, { of: "moon" }, { of: "system", to: 500 }, { of: "system", to: "50" }, { of: "voice", by: NaN }, { of: "voice", mute: true }]) {
    expect(intent(given)).toBeUndefined();
    expect(await act(given)).toBe("I did not understand which volume.");
  }
  expect(voice.percent).toBe(100);
});
