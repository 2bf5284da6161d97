// The folders that the desktop gives its user: Documents, Downloads, Pictures.

import { readFileSync } from "node:fs";
import { homedir } from "node:os";
import { isAbsolute, join } from "node:path";

export type UserFolder = "DESKTOP" | "DOCUMENTS" | "DOWNLOAD" | "MUSIC" | "PICTURES" | "PUBLICSHARE" | "TEMPLATES" | "VIDEOS";

type Environment = Record<string, string | undefined>;

const usual: Record<UserFolder, string> = {
  DESKTOP: "Desktop",
  DOCUMENTS: "Documents",
  DOWNLOAD: "Downloads",
  MUSIC: "Music",
  PICTURES: "Pictures",
  PUBLICSHARE: "Public",
  TEMPLATES: "Templates",
  VIDEOS: "Videos",
};

export function homeOf(environment: Environment): string {
  return environment.HOME || homedir();
}

/** The folder by the file `user-dirs.dirs` of xdg-user-dirs, else the usual one in the home folder. */
export function userFolder(environment: Environment, name: UserFolder): string {
  const home = homeOf(environment);
  let text = "";
  try {
    text = readFileSync(join(environment.XDG_CONFIG_HOME || join(home, ".config"), "user-dirs.dirs"), "utf8");
  } catch {
    // There is none: the usual folder.
  }
  const value = new RegExp(`^\\s*XDG_${name}_DIR="([^"\\n]*)"`, "m").exec(text)?.[1];
  const path = value?.replace(/^\$HOME(?=\/|$)/, home).replace(/\\(.)/g, "$1");
  // A folder that is switched off is set to the home folder itself.
  return path !== undefined && isAbsolute(path) && join(path, "/") !== join(home, "/") ? path : join(home, usual[name]);
}
