// How people say yes and no when they are asked for leave.

import type { Language } from "./language.ts";
import { plainWords } from "./words.ts";

interface Words {
  yes: string[];
  no: string[];
  /** These change neither. */
  courtesies: string[];
}

const words: Record<Language, Words> = {
  en: {
    yes: [
      "yes", "yeah", "yep", "yup", "sure", "sure thing", "ok", "okay", "alright", "all right", "of course", "certainly", "absolutely",
      "definitely", "by all means", "go ahead", "go for it", "do it", "do that", "do so", "please do", "you may", "you can",
      "that is fine", "that's fine", "that is ok", "that's ok", "that's okay", "sounds good", "fine by me", "i confirm", "confirmed",
      "allow it", "i allow it",
    ],
    no: [
      "no", "nope", "nah", "no way", "don't", "do not", "don't do it", "do not do it", "don't do that", "do not do that",
      "you may not", "not now", "not yet", "not today", "never mind", "forget it", "forget about it", "leave it", "cancel",
      "cancel it", "cancel that", "better not", "rather not", "i'd rather not", "certainly not", "of course not", "absolutely not",
      "definitely not",
    ],
    courtesies: ["please", "thanks", "thank you", "now", "then", "for me"],
  },
  pt: {
    yes: [
      "sim", "pode", "pode sim", "pode ser", "pode fazer", "pode fazer isso", "pode ir", "claro", "claro que sim", "com certeza",
      "certeza", "isso", "isso mesmo", "isso aí", "ok", "okay", "tá", "tá bom", "tá bem", "tá certo", "está bem", "está bom",
      "tudo bem", "beleza", "certo", "faz", "faça", "faz isso", "faça isso", "vai", "vai em frente", "vá em frente", "manda",
      "manda ver", "quero", "quero sim", "confirmo", "confirmado", "autorizo", "permito", "concordo", "é claro", "por favor sim",
    ],
    no: [
      "não", "não pode", "não precisa", "não faz", "não faça", "não faz isso", "não faça isso", "não quero", "não quero não",
      "nem pensar", "de jeito nenhum", "agora não", "ainda não", "hoje não", "melhor não", "é melhor não", "acho melhor não",
      "prefiro que não", "claro que não", "deixa", "deixa pra lá", "deixa para lá", "deixa disso", "esquece", "esqueça", "cancela",
      "cancele", "isso não", "negativo",
    ],
    courtesies: ["por favor", "por gentileza", "obrigado", "obrigada", "valeu", "agora", "então", "aí", "pra mim", "para mim"],
  },
};

/** Longest first: "of course not" is a no. */
const pieces: Record<Language, [said: string[], means: keyof Words][]> = { en: piecesOf(words.en), pt: piecesOf(words.pt) };

function piecesOf(all: Words): [string[], keyof Words][] {
  const each = (means: keyof Words): [string[], keyof Words][] => all[means].map((said) => [plainWords(said), means]);
  return [...each("yes"), ...each("no"), ...each("courtesies")].sort(([a], [b]) => b.length - a.length);
}

/** Undefined for what is neither, what is both, and what says anything else besides. */
export function replyIn(text: string, language: Language): "yes" | "no" | undefined {
  const said = plainWords(text);
  const meant = new Set<keyof Words>();
  for (let at = 0; at < said.length; ) {
    const found = pieces[language].find(([piece]) => piece.every((word, index) => said[at + index] === word));
    if (!found) return undefined;
    meant.add(found[1]);
    at += found[0].length;
  }
  if (meant.has("yes") === meant.has("no")) return undefined;
  return meant.has("yes") ? "yes" : "no";
}
