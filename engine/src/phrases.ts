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
  tooLong: string;
  reasons: {
    notUnderstood: string;
    noName: string;
    noRecogniser: string;
    draftEmpty: string;
    ownVoice: string;
    overAnswer: string;
    muted: string;
    thinking: string;
    tooShort: string;
  };
  /** Asks to be allowed to do this. */
  mayI: (what: string) => string;
  allRight: string;
  modelAway: string;
  /** What the language model is told about its part. */
  instructions: (name: string) => string;
}

export const phrases: Record<Language, Phrases> = {
  en: {
    calls: ["hey", "ok", "okay", "hello", "hi"],
    stop: ["stop", "be quiet", "quiet", "cancel", "enough", "never mind"],
    clearDraft: ["clear the draft", "discard the draft", "forget the draft"],
    newConversation: ["new conversation", "start a new conversation"],
    mute: ["mute", "mute yourself", "stop listening"],
    yes: ["yes", "yes please", "yes you may", "go ahead"],
    no: ["no", "no thanks", "no you may not"],
    sample: (name) => `Hello, I am ${name}. This is how I sound.`,
    conversationBegun: "A new conversation.",
    tooLong: "That is too long for me.",
    reasons: {
      notUnderstood: "not understood",
      noName: "the name was not said",
      noRecogniser: "there is no speech recogniser",
      draftEmpty: "the draft is empty",
      ownVoice: "the agent's own voice",
      overAnswer: "asked over the answer",
      muted: "the microphone was muted",
      thinking: "an answer is being thought out",
      tooShort: "too short over the agent's voice",
    },
    mayI: (what) => `May I? ${what}`,
    allRight: "All right, I will not.",
    modelAway: "The language model did not answer.",
    instructions: (name) =>
      `You are ${name}, a voice assistant. Your answer is read aloud: answer in one to three short plain sentences, ` +
      "without markup, lists or code, in the language of the question.",
  },
  pt: {
    calls: ["ei", "oi", "ô", "olá", "ok"],
    stop: ["para", "pare", "chega", "silêncio", "cancela", "deixa pra lá"],
    clearDraft: ["apaga o rascunho", "limpa o rascunho", "descarta o rascunho"],
    newConversation: ["nova conversa", "começa uma nova conversa"],
    mute: ["fica em silêncio", "desliga o microfone", "para de ouvir"],
    yes: ["sim", "sim pode", "claro que sim", "pode fazer"],
    no: ["não", "não precisa", "não pode"],
    sample: (name) => `Olá, eu sou ${name}. É assim que eu falo.`,
    conversationBegun: "Uma nova conversa.",
    tooLong: "Isso é longo demais para mim.",
    reasons: {
      notUnderstood: "não entendi",
      noName: "o nome não foi dito",
      noRecogniser: "não há reconhecedor de fala",
      draftEmpty: "o rascunho está vazio",
      ownVoice: "a própria voz do assistente",
      overAnswer: "pediu por cima da resposta",
      muted: "o microfone estava mudo",
      thinking: "uma resposta está sendo pensada",
      tooShort: "curto demais por cima da voz do assistente",
    },
    mayI: (what) => `Posso? ${what}`,
    allRight: "Tudo bem, não faço.",
    modelAway: "O modelo de linguagem não respondeu.",
    instructions: (name) =>
      `Você é ${name}, uma assistente de voz. A sua resposta é lida em voz alta: responda em uma a três frases curtas, ` +
      "sem marcação, listas ou código, na língua da pergunta.",
  },
};
