// The folders that the desktop gives its user: Documents, Downloads, Pictures.

import { homedir } from "node:os";
import { isAbsolute, join } from "node:path";
import { fileText } from "./fileText.ts";

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
  const text = fileText(join(environment.XDG_CONFIG_HOME || join(home, ".config"), "user-dirs.dirs"));
  const value = new RegExp(`^\\s*XDG_${name}_DIR="([^"\\n]*)"`, "m").exec(text)?.[1];
  const path = value?.replace(/^\$HOME(?=\/|$)/, home).replace(/\\(.)/g, "$1");
  // A folder that is switched off is set to the home folder itself.
  return path !== undefined && isAbsolute(path) && join(path, "/") !== join(home, "/") ? path : join(home, usual[name]);
}
