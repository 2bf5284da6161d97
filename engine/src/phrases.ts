// What the engine itself understands and says, in each language.

import type { Language } from "./language.ts";

export interface Phrases {
  /** Words that may stand before the agent's name. */
  calls: string[];
  /** Ends what the agent is saying or thinking out. */
  stop: string[];
  /** Clears the dictation draft. */
  clearDraft: string[];
  newConversation: string[];
  mute: string[];
  yes: string[];
  no: string[];
  sample: (name: string) => string;
  conversationBegun: string;
  reasons: {
    notUnderstood: string;
    noName: string;
    noRecogniser: string;
    draftEmpty: string;
    ownVoice: string;
    interruptedAnswer: string;
    overAnswer: string;
    muted: string;
    thinking: string;
  };
}

export const phrases: Record<Language, Phrases> = {
  en: {
    calls: ["hey", "ok", "okay", "hello", "hi"],
    stop: ["stop", "be quiet", "quiet", "cancel", "enough", "never mind"],
    clearDraft: ["clear the draft", "discard the draft", "forget the draft"],
    newConversation: ["new conversation", "start a new conversation"],
    mute: ["mute", "mute yourself", "stop listening"],
    yes: ["yes", "yes please", "sure", "do it", "go ahead"],
    no: ["no", "no thanks", "do not"],
    sample: (name) => `Hello, I am ${name}. This is how I sound.`,
    conversationBegun: "A new conversation.",
    reasons: {
      notUnderstood: "not understood",
      noName: "the name was not said",
      noRecogniser: "there is no speech recogniser",
      draftEmpty: "the draft is empty",
      ownVoice: "the agent's own voice",
      interruptedAnswer: "spoken over the answer",
      overAnswer: "asked over the answer",
      muted: "the microphone was muted",
      thinking: "an answer is being thought out",
    },
  },
  pt: {
    calls: ["ei", "oi", "ô", "olá", "ok"],
    stop: ["para", "pare", "chega", "silêncio", "cancela", "deixa pra lá"],
    clearDraft: ["apaga o rascunho", "limpa o rascunho", "descarta o rascunho"],
    newConversation: ["nova conversa", "começa uma nova conversa"],
    mute: ["fica em silêncio", "desliga o microfone", "para de ouvir"],
    yes: ["sim", "pode", "claro", "pode fazer", "isso"],
    no: ["não", "não precisa", "agora não"],
    sample: (name) => `Olá, eu sou ${name}. É assim que eu falo.`,
    conversationBegun: "Uma nova conversa.",
    reasons: {
      notUnderstood: "não entendi",
      noName: "o nome não foi dito",
      noRecogniser: "não há reconhecedor de fala",
      draftEmpty: "o rascunho está vazio",
      ownVoice: "a própria voz do assistente",
      interruptedAnswer: "falou por cima da resposta",
      overAnswer: "pediu por cima da resposta",
      muted: "o microfone estava mudo",
      thinking: "uma resposta está sendo pensada",
    },
  },
};
