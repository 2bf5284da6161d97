// The languages in which the engine hears, answers and speaks.

export type Language = "pt" | "en";

export interface Locale {
  language: Language;
  /** The voice of `espeak-ng` that speaks it. */
  voice: string;
  /** The tag by which dates are written. */
  tag: string;
}

const voices: Record<string, string> = {
  "pt-br": "pt-br",
  pt: "pt-br",
  "pt-pt": "pt",
  "en-gb": "en-gb",
  en: "en-us",
  "en-us": "en-us",
};

/** Chooses the first language of `PALOMET_LANGUAGES` that the engine speaks, else that of `LANG`, else English. */
export function chooseLocale(environment: Record<string, string | undefined>): Locale {
  const wanted = (environment.PALOMET_LANGUAGES ?? "").split(",");
  if (wanted.every((tag) => tag.trim() === "")) wanted.push(environment.LANG?.split(".")[0]?.replace("_", "-") ?? "");
  for (const entry of wanted) {
    const tag = entry.trim().toLowerCase();
    const language = tag.split("-")[0];
    if (language !== "pt" && language !== "en") continue;
    const voice = voices[tag] ?? voices[language] ?? "en-us";
    const region = tag.split("-")[1]?.toUpperCase() ?? (language === "pt" ? "BR" : "US");
    return { language, voice, tag: isRegion(region) ? `${language}-${region}` : language };
  }
  return { language: "en", voice: "en-us", tag: "en-US" };
}

function isRegion(text: string): boolean {
  return /^([A-Z]{2}|[0-9]{3})$/.test(text);
}
