// The time zones of places: cities that a zone is named after, other large cities, and countries.

import type { Language } from "../base/language.ts";
import { plainWords } from "../base/words.ts";

/** Cities that no zone is named after, and what the cities of a zone are called in Portuguese. */
const cities: Record<string, string[]> = {
  "Africa/Algiers": ["Argel"],
  "Africa/Johannesburg": ["Joanesburgo", "Cape Town", "Cidade do Cabo", "Pretoria", "Durban"],
  "Africa/Tripoli": ["Trípoli"],
  "America/Asuncion": ["Assunção"],
  "America/Chicago": ["Houston", "Dallas", "Austin", "New Orleans", "Nova Orleans"],
  "America/Los_Angeles": ["San Francisco", "São Francisco", "Seattle", "San Diego", "Las Vegas", "California", "Califórnia"],
  "America/Manaus": ["Amazonas"],
  "America/Mexico_City": ["Cidade do México"],
  "America/Montevideo": ["Montevidéu"],
  "America/New_York": [
    "Nova York", "Nova Iorque", "New York City", "Boston", "Washington", "Miami", "Atlanta", "Philadelphia", "Filadélfia", "Orlando",
  ],
  "America/Sao_Paulo": [
    "Rio de Janeiro", "Rio", "Brasília", "Belo Horizonte", "Curitiba", "Porto Alegre", "Florianópolis", "Goiânia", "Vitória",
  ],
  "America/Bahia": ["Salvador"],
  "America/Toronto": ["Montreal", "Ottawa", "Quebec"],
  "Asia/Baghdad": ["Bagdá"],
  "Asia/Bangkok": ["Hanoi", "Hanói"],
  "Asia/Dubai": ["Abu Dhabi"],
  "Asia/Jerusalem": ["Tel Aviv"],
  "Asia/Kathmandu": ["Catmandu"],
  "Asia/Kolkata": ["Calcutta", "Calcutá", "Delhi", "Déli", "New Delhi", "Nova Délhi", "Nova Déli", "Mumbai", "Bombay", "Bangalore"],
  "Asia/Manila": ["Manilha"],
  "Asia/Riyadh": ["Riade"],
  "Asia/Seoul": ["Seul"],
  "Asia/Shanghai": ["Xangai", "Beijing", "Peking", "Pequim"],
  "Asia/Singapore": ["Singapura"],
  "Asia/Tehran": ["Teerã"],
  "Asia/Tokyo": ["Tóquio", "Osaka", "Kyoto", "Quioto"],
  "Atlantic/Azores": ["Açores"],
  "Australia/Sydney": ["Sidney", "Canberra"],
  "Europe/Amsterdam": ["Amsterdã", "Amesterdão", "Rotterdam", "The Hague", "Haia"],
  "Europe/Athens": ["Atenas"],
  "Europe/Belgrade": ["Belgrado"],
  "Europe/Berlin": ["Berlim", "Munich", "Munique", "Hamburg", "Hamburgo", "Frankfurt", "Cologne", "Colônia"],
  "Europe/Brussels": ["Bruxelas"],
  "Europe/Bucharest": ["Bucareste"],
  "Europe/Budapest": ["Budapeste"],
  "Europe/Copenhagen": ["Copenhague"],
  "Europe/Helsinki": ["Helsinque"],
  "Europe/Istanbul": ["Istambul"],
  "Europe/Kyiv": ["Kiev"],
  "Europe/Lisbon": ["Lisboa", "Porto", "Coimbra", "Braga"],
  "Europe/London": ["Londres", "Manchester", "Liverpool", "Edinburgh", "Edimburgo", "England", "Inglaterra", "Scotland", "Escócia"],
  "Europe/Luxembourg": ["Luxemburgo"],
  "Europe/Madrid": ["Madri", "Barcelona", "Valencia", "Seville", "Sevilha"],
  "Europe/Moscow": ["Moscou", "Moscovo", "Saint Petersburg", "São Petersburgo"],
  "Europe/Paris": ["Lyon", "Marseille", "Marselha"],
  "Europe/Prague": ["Praga"],
  "Europe/Rome": ["Roma", "Milan", "Milão", "Venice", "Veneza", "Florence", "Florença", "Naples", "Nápoles"],
  "Europe/Sofia": ["Sófia"],
  "Europe/Stockholm": ["Estocolmo"],
  "Europe/Vienna": ["Viena"],
  "Europe/Warsaw": ["Varsóvia", "Cracow", "Krakow", "Cracóvia"],
  "Europe/Zurich": ["Zurique", "Geneva", "Genebra", "Basel", "Basileia"],
  "Pacific/Honolulu": ["Hawaii", "Havaí"],
};

const plain = (name: string): string => plainWords(name).join(" ");

let zonesOfCities: Map<string, string> | undefined;

/** Gives undefined for a place that is not known, and for a country where no one time is that of most. */
export function timeZoneOf(place: string, language: Language): string | undefined {
  zonesOfCities ??= new Map([
    ...Intl.supportedValuesOf("timeZone").map((zone) => [plain(zone.slice(zone.lastIndexOf("/") + 1)), zone] as const),
    ...Object.entries(cities).flatMap(([zone, names]) => names.map((name) => [plain(name), zone] as const)),
  ]);
  // "Lisbon, Portugal" is Lisbon.
  for (const part of [place, place.split(",")[0]!]) {
    const name = plain(part).replace(/^the /, "");
    const found = zonesOfCities.get(name) ?? zoneOfCountry(name, language);
    if (found !== undefined) return found;
  }
  return undefined;
}

/** The zones of each country, by its plain name. */
const countries = new Map<Language, Map<string, Country>>();

interface Country {
  name: string;
  zones: readonly string[];
}

function zoneOfCountry(plainName: string, language: Language): string | undefined {
  const all = countries.get(language) ?? allCountries(language);
  countries.set(language, all);
  const country = all.get(plainName);
  if (country === undefined) return undefined;
  const { name, zones } = country;
  // The zone in which most people of a country live is named after it: "Portugal Time" is that of Lisbon.
  const main = zones.find((zone) => partOf(zone, language, "shortGeneric").includes(name));
  return main ?? (new Set(zones.map((zone) => partOf(zone, language, "longOffset"))).size === 1 ? zones[0] : undefined);
}

function allCountries(language: Language): Map<string, Country> {
  const names = new Intl.DisplayNames(language, { type: "region", fallback: "none" });
  const letters = [..."ABCDEFGHIJKLMNOPQRSTUVWXYZ"];
  const codes = letters.flatMap((first) => letters.map((second) => `${first}${second}`));
  return new Map(
    codes.flatMap((code) => {
      const name = names.of(code);
      const zones = name === undefined ? [] : zonesOf(code);
      return name === undefined || zones.length === 0 ? [] : [[plain(name), { name, zones }] as const];
    }),
  );
}

function zonesOf(code: string): readonly string[] {
  const locale = new Intl.Locale(`und-${code}`) as Intl.Locale & { getTimeZones?: () => string[] | undefined };
  return locale.getTimeZones?.() ?? [];
}

function partOf(timeZone: string, language: Language, timeZoneName: "shortGeneric" | "longOffset"): string {
  const parts = new Intl.DateTimeFormat(language, { timeZone, timeZoneName }).formatToParts();
  return parts.find(({ type }) => type === "timeZoneName")?.value ?? "";
}
