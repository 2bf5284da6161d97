import { expect, test } from "bun:test";
import { Bus } from "../../../src/hands/bus.ts";
import { ScreenshotHand } from "../../../src/hands/desktop/screenshotHand.ts";
import { ScreenshotPortal } from "../../support/desktopServices.ts";
import { privateBus } from "../../support/privateBus.ts";
import { going } from "../../support/processes.ts";

/** Takes a screenshot by a portal that answers so. */
async function take(code: number, results: unknown[], order?: "early" | "late"): Promise<string> {
  const portal = await ScreenshotPortal.open([code, results], order);
  const said = await new ScreenshotHand(new Bus(await privateBus())).act({}, "en", going);
  expect(portal.options).toHaveLength(1);
  await portal.close();
  return said;
}

const uri = (data: string): unknown[] => [["uri", { type: "s", data }]];

test("a screenshot is where the portal says, whenever it says so", async () => {
  for (const order of ["early", "late"] as const) {
    const said = await take(0, uri("file:///home/ana/Pictures/Screenshot%201.png"), order);
    expect(said).toBe("The screenshot is /home/ana/Pictures/Screenshot 1.png.");
  }
});

test("a screenshot that the user refuses, or that fails, is said", async () => {
  expect(await take(1, [])).toBe("The screenshot was cancelled.");
  expect(await take(2, [])).toBe("I cannot take a screenshot here.");
  for (const results of [[], uri("https://example.org/x"), uri("nonsense"), uri("file:///%"), [["uri", { type: "u", data: 5 }]]]) {
    expect(await take(0, results)).toBe("I cannot take a screenshot here.");
  }
});

test("without a portal, or a bus, that is said", async () => {
  expect(await new ScreenshotHand(new Bus(await privateBus())).act({}, "pt", going)).toBe("Não consigo capturar a tela aqui.");
  expect(await new ScreenshotHand(new Bus({})).act({}, "en", going)).toBe("I cannot take a screenshot here.");
});
