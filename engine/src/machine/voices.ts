// Looks which voices are installed.

import { existsSync } from "node:fs";
import { join } from "node:path";
import { knownVoices, type Voice } from "../base/voices.ts";
import type { Children } from "./children.ts";

const rhvoiceFolders = ["/usr/share/RHVoice/voices", "/usr/local/share/RHVoice/voices"];

/** The known voices that can speak now. */
export function installedVoices(children: Children, folders: readonly string[] = rhvoiceFolders): Voice[] {
  const has = {
    RHVoice: children.find("RHVoice-test") !== undefined,
    Flite: children.find("flite") !== undefined,
    "eSpeak NG": children.find("espeak-ng") !== undefined,
  };
  // RHVoice speaks with another voice when it lacks the one that it is asked for, and says nothing about it.
  const isThere = (voice: Voice): boolean => folders.some((folder) => existsSync(join(folder, voice.name)));
  return knownVoices.filter((voice) => has[voice.program] && (voice.program !== "RHVoice" || isThere(voice)));
}
