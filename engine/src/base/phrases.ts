// The phrases that the engine itself understands and says, in each language.

import type { Language } from "./language.ts";

export interface Phrases {
  language: Language;
  /** A user may put one of these words before the agent's name. */
  calls: string[];
  /** Ends what the agent is saying or thinking out. */
  stop: string[];
  /** Clears the dictation draft. */
  clearDraft: string[];
  newConversation: string[];
  mute: string[];
  /** What a recogniser of phrases listens for; `replies.ts` knows more. */
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
  /** Says that this was not done, and that a yes cannot allow it. */
  mayNot: (what: string) => string;
  /** Words for the things that a yes may allow. */
  leave: {
    change: (path: string) => string;
    read: (path: string) => string;
    anyPage: (site: string) => string;
    search: string;
    use: (tool: string) => string;
    newLine: string;
    /** The names of the marks that commands and paths are made of. */
    marks: Record<string, string>;
  };
  allRight: string;
  /** Something else was asked leave for at the same time. */
  askAgain: (what: string) => string;
  /** What was asked leave for would be something else by now, and was not done. */
  notTheSame: string;
  /** Something went wrong that should not have. */
  handFailed: string;
  modelAway: string;
  /** The server does not have this model. */
  modelMissing: (model: string) => string;
  /** The language model stopped in the middle of its answer. */
  modelBroke: string;
  /** Takes the place of a block of code, which is shown and not read aloud. */
  codeShown: string;
  /** Tells the language model its part. */
  instructions: (name: string) => string;
  /** Tells it what tools are for. */
  toolRules: string;
  /** Tells a model that has no tools of the agent's what is done without it. */
  handsBeside: string;
}

export const phrases: Record<Language, Phrases> = {
  en: {
    language: "en",
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
    mayNot: (what) => `I was not allowed to do this, and a yes cannot allow just this: ${what}`,
    leave: {
      change: (path) => `change ${path}`,
      read: (path) => `read ${path}`,
      anyPage: (site) => `open any page of ${site}`,
      search: "search the web for anything",
      use: (tool) => `use ${tool} for anything`,
      newLine: "new line",
      marks: {
        "!": "exclamation mark", '"': "quote", "#": "hash", $: "dollar", "%": "percent", "&": "and sign",
        "'": "single quote", "*": "star", "\\": "backslash", "+": "plus", "-": "dash", ".": "dot", "/": "slash", ":": "colon", ";": "semicolon",
        "<": "less than", "=": "equals", ">": "greater than", "?": "question mark", "@": "at", "[": "open bracket",
        "]": "close bracket", "^": "caret", _: "underscore", "`": "backquote", "{": "open brace", "|": "pipe",
        "}": "close brace", "~": "tilde", "(": "open parenthesis", ")": "close parenthesis", ",": "comma",
      },
    },
    allRight: "All right, I will not.",
    askAgain: (what) => `Ask me again afterwards to ${what}.`,
    notTheSame: "That has changed since, and I left it alone.",
    handFailed: "That did not work.",
    modelAway: "The language model did not answer.",
    modelMissing: (model) => `The model ${model} is not there.`,
    modelBroke: "The language model broke off.",
    codeShown: "The code is on the screen.",
    instructions: (name) =>
      `You are ${name}, a voice assistant. Your answer is read aloud: answer in one to three short plain sentences, ` +
      "without markup, lists or code, in the language of the question.",
    toolRules:
      "You can do things on this computer only by your tools. Use one when the user wants what it does. The user is asked about what " +
      "needs leave: do not ask yourself. Say that something was done only when the tool's result says so.",
    handsBeside:
      "Timers, alarms, reminders, notes, lists, volume, music, opening applications and pages, screenshots and sums are done without you, when " +
      "they are asked for plainly, as in \"set a timer for five minutes\". " +
      "If somebody wants one of these and you are asked, say in which words to ask for it.",
  },
  pt: {
    language: "pt",
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
    mayNot: (what) => `Isto não me foi permitido, e um sim não consegue permitir só isto: ${what}`,
    leave: {
      change: (path) => `alterar ${path}`,
      read: (path) => `ler ${path}`,
      anyPage: (site) => `abrir qualquer página de ${site}`,
      search: "pesquisar qualquer coisa na internet",
      use: (tool) => `usar ${tool} para qualquer coisa`,
      newLine: "nova linha",
      marks: {
        "!": "ponto de exclamação", '"': "aspas", "#": "cerquilha", $: "cifrão", "%": "por cento", "&": "e comercial",
        "'": "aspas simples", "*": "asterisco", "\\": "barra invertida", "+": "mais", "-": "traço", ".": "ponto", "/": "barra", ":": "dois pontos",
        ";": "ponto e vírgula", "<": "menor que", "=": "igual", ">": "maior que", "?": "ponto de interrogação",
        "@": "arroba", "[": "abre colchete", "]": "fecha colchete", "^": "circunflexo", _: "sublinhado",
        "`": "crase", "{": "abre chave", "|": "barra vertical", "}": "fecha chave", "~": "til",
        "(": "abre parêntese", ")": "fecha parêntese", ",": "vírgula",
      },
    },
    allRight: "Tudo bem, não faço.",
    askAgain: (what) => `Peça de novo depois para ${what}.`,
    notTheSame: "Isso mudou nesse meio tempo, e não mexi.",
    handFailed: "Não deu certo.",
    modelAway: "O modelo de linguagem não respondeu.",
    modelMissing: (model) => `O modelo ${model} não está lá.`,
    modelBroke: "O modelo de linguagem parou no meio.",
    codeShown: "O código está na tela.",
    instructions: (name) =>
      `Você é ${name}, uma assistente de voz. A sua resposta é lida em voz alta: responda em uma a três frases curtas, ` +
      "sem marcação, listas ou código, na língua da pergunta.",
    toolRules:
      "Você só faz coisas neste computador pelas suas ferramentas. Use uma quando a pessoa quiser o que ela faz. O que precisa de " +
      "permissão é perguntado à pessoa: não pergunte você. Diga que algo foi feito só quando o resultado da ferramenta disser isso.",
    handsBeside:
      "Timers, alarmes, lembretes, notas, listas, volume, música, abrir aplicativos e páginas, capturas de tela e contas são feitos sem você, " +
      "quando alguém pede diretamente, como em \"coloca um timer de cinco minutos\". " +
      "Se alguém quiser uma dessas coisas e perguntarem a você, diga com que palavras pedir.",
  },
};
