import { expect, test } from "bun:test";
import { Bus } from "../../../src/hands/bus.ts";
import { ScreenshotHand } from "../../../src/hands/desktop/screenshotHand.ts";
import { privateBus, service } from "../../support/privateBus.ts";
import { going } from "../../support/processes.ts";

/** Takes a screenshot by a portal that answers so. */
async function take(code: number, results: unknown[]): Promise<string> {
  const portal = await service("org.freedesktop.portal.Desktop");
  portal.onCall = ({ member, sender = "", body: [, options] }) => {
    const token = (options as [string, { data: string }][]).find(([key]) => key === "handle_token")![1].data;
    const handle = `/org/freedesktop/portal/desktop/request/${sender.slice(1).replaceAll(".", "_")}/${token}`;
    // It answers to whoever has asked, and to nobody else.
    portal.emit(handle, "org.freedesktop.portal.Request.Response", "ua{sv}", [code, results], sender);
    return member === "Screenshot" ? { signature: "o", body: [handle] } : undefined;
  };
  const said = await new ScreenshotHand(new Bus(await privateBus())).act({}, "en", going);
  portal.close();
  return said;
}

const uri = (data: string): unknown[] => [["uri", { type: "s", data }]];

test("a screenshot is where the portal says", async () => {
  expect(await take(0, uri("file:///home/ana/Pictures/Screenshot%201.png"))).toBe("The screenshot is /home/ana/Pictures/Screenshot 1.png.");
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
