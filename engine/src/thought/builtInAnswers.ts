// Answers without a language model: the questions that the engine knows, each with the phrasings that the grammar of the
// recogniser is made of.

import type { Language, Locale } from "../base/language.ts";
import { cut } from "../base/text.ts";
import { plainWords } from "../base/words.ts";
import { withoutManners } from "../hands/parsing/sentence.ts";
import { timeElsewhere } from "./timeElsewhere.ts";
import { saidTime } from "./timeOfDay.ts";

/** A longer text is none of the questions; and no more of a request is read back. Both are in characters. */
const longestQuestion = 1_000;
const longestRequest = 20_000;

export interface AnswerContext {
  now: Date;
  locale: Locale;
  name: string;
  lastAnswer: string | undefined;
}

interface Question {
  /** Whole requests. */
  phrases: Record<Language, string[]>;
  /** A request whose plain words match is this question in other words. */
  pattern: RegExp;
  answer: Record<Language, (context: AnswerContext) => string>;
}

/** What may stand around a question without changing it. */
const before =
  "(please|hey|hi|hello|ok|okay|so|and|well|now|excuse me|sorry|right|por favor|ei|oi|ola|entao|e|agora|escuta|olha|por gentileza|com licenca|" +
  "((can|could|would|will) you (please )?)?(tell|give) me|do you( happen to)? know|can i (know|ask)|i (want|need|would like) to know|" +
  "((voce )?(pode|poderia|consegue) )?(me )?(diz|diga|dizer|fala|fale|falar|informa|informe|informar|conta)( me)?|(voce )?sabe( me dizer)?|quero saber|queria saber|gostaria de saber)";
const after =
  "(please|now|right now|just now|currently|exactly|here|at the moment|today|again|thanks|thank you|already|then|dear|por favor|por gentileza|agora|" +
  "agora mesmo|nesse momento|neste momento|no momento|aqui|ai|hoje|ja|exatamente|obrigado|obrigada|mesmo|para mim|pra mim)";

/** Takes plain words that are nothing but the question: what only speaks of the time is none. */
function whole(english: string, portuguese: string): RegExp {
  return new RegExp(`^(${before} ){0,4}(${english}|${portuguese})( ${after}){0,3}$`);
}

const questions: Question[] = [
  {
    phrases: {
      en: ["what time is it", "what is the time", "tell me the time", "do you know what time it is"],
      pt: ["que horas são", "que horas são agora", "me diga as horas", "você sabe que horas são"],
    },
    pattern: whole(
      "what (time|hour) (is it|it is|do (we|you) have|have (we|you) got|(we|you) have)|(what( i?s)? |do you have |have you got |you got |got |check )?the (current |exact |right )?time( is)?|what s the time|time|how late is it",
      "(agora )?(sao )?(que|quantas) horas?( (sao|e|tem|temos|a gente tem|(voce )?tem|marca o relogio|estamos))?|(ve |olha |tem |da )?(as )?horas( certas)?|(qual e?|ve|olha|da) ?a hora( certa| atual)?|a hora( certa| atual)?",
    ),
    answer: { en: localTime, pt: localTime },
  },
  {
    phrases: {
      en: ["what day is it", "what day is it today", "what is the date", "what is the date today", "tell me the date"],
      pt: ["que dia é hoje", "qual é a data", "qual é a data de hoje", "em que dia estamos", "me diga a data"],
    },
    pattern: whole(
      "(what|which) (day|date|weekday|day of the week|day of the month)( (is it|is today|it is|are we|do we have|we have|(are )?we on))?|(what( i?s)? |check )?(the|today ?s|the current) date( is)?|what s (the|today ?s) date|date",
      "(hoje )?(e |estamos )?(em )?(que|qual) (dia|data)( (da semana|do mes))?( (e|estamos|temos|e hoje|hoje))?|(qual e? ?)?(a data|o dia( da semana)?)( de hoje| atual)?|hoje e (dia quanto|(que|qual) (dia|data)( da semana| do mes)?)|data( de hoje)?",
    ),
    answer: {
      en: (context) => `Today is ${longDate(context)}.`,
      pt: (context) => `Hoje é ${longDate(context)}.`,
    },
  },
  {
    phrases: {
      en: ["what can you do", "what do you know", "help", "help me"],
      pt: ["o que você sabe fazer", "o que você pode fazer", "ajuda", "me ajuda"],
    },
    pattern: /\b(what can you do|what do you (know|do)|help|o que (voce|vc) (sabe|pode|faz)|ajuda|me ajude)\b/,
    answer: {
      en: () =>
        "I can tell the time and the date, set timers, alarms and reminders, keep notes and lists, change the volume and the music, " +
        "open applications, and work out sums. With a language model I can answer anything.",
      pt: () =>
        "Sei dizer as horas e a data, marcar timers, alarmes e lembretes, guardar notas e listas, mudar o volume e a música, " +
        "abrir aplicativos e fazer contas. Com um modelo de linguagem, respondo qualquer coisa.",
    },
  },
  {
    phrases: {
      en: ["who are you", "what is your name"],
      pt: ["quem é você", "qual é o seu nome", "como você se chama"],
    },
    pattern: /\b(who are you|your name|quem e voce|seu nome|voce se chama)\b/,
    answer: {
      en: ({ name }) => `I am ${name}, your voice assistant. I run on this computer.`,
      pt: ({ name }) => `Sou ${name}, a sua assistente de voz. Funciono neste computador.`,
    },
  },
  {
    phrases: {
      en: ["repeat", "say that again", "repeat that please"],
      pt: ["repete", "repete por favor", "diga de novo"],
    },
    pattern: /^(please )?(repeat|say (that|it) again|repete|repita|(diga|fala|fale) (de novo|outra vez))\b/,
    answer: {
      en: ({ lastAnswer }) => lastAnswer ?? "I have not said anything yet.",
      pt: ({ lastAnswer }) => lastAnswer ?? "Ainda não disse nada.",
    },
  },
  {
    phrases: {
      en: ["hello", "good morning", "good afternoon", "good evening", "how are you"],
      pt: ["olá", "bom dia", "boa tarde", "boa noite", "tudo bem"],
    },
    pattern: /^(hello|hi|hey|good (morning|afternoon|evening)|how are you|ola|oi|bom dia|boa (tarde|noite)|tudo bem)\b/,
    answer: { en: () => "Hello! How can I help?", pt: () => "Olá! Como posso ajudar?" },
  },
  {
    phrases: { en: ["thank you", "thanks"], pt: ["obrigado", "obrigada", "valeu"] },
    pattern: /^(thank you|thanks|(muito )?obrigad[oa]|valeu)\b/,
    answer: { en: () => "You are welcome.", pt: () => "De nada." },
  },
];

/** All questions, as one would say them. */
export function knownPhrases(language: Language): string[] {
  return questions.flatMap((question) => question.phrases[language]);
}

/** It asks for the time, here or elsewhere, or for the date, and for nothing else. */
export function asksForTime(sentence: string, language: Language, now: Date): boolean {
  return timelyQuestion(sentence, language, now) !== undefined || timeElsewhere(sentence, now, language, language) !== undefined;
}

function timelyQuestion(sentence: string, language: Language, now: Date): Question | undefined {
  const bare = [sentence, ...withoutManners(sentence, language, now)].map((text) => plainWords(text).join(" "));
  return questions.slice(0, 2).find(({ pattern }) => bare.some((each) => pattern.test(each)));
}

/** Answers a request of one sentence; gives undefined when it is none of the questions. */
export function knownAnswer(request: string, context: AnswerContext): string | undefined {
  if (request.length > longestQuestion) return undefined;
  const { now, locale } = context;
  const elsewhere = timeElsewhere(request, now, locale.language, locale.tag);
  if (elsewhere !== undefined) return elsewhere;
  const plain = plainWords(request).join(" ");
  // "Good morning dear, could you tell me what time it is?" wants the time and not the greeting.
  const timely = timelyQuestion(request, locale.language, now);
  if (timely) return timely.answer[locale.language](context);
  return questions.find((question) => question.pattern.test(plain))?.answer[locale.language](context);
}

/** Answers the sentences of a request that are questions, and leaves out the others; undefined when none is. */
export function knownAnswers(request: string, context: AnswerContext): string | undefined {
  // "My sister lives in Sydney. What time is it there?"
  const both = (sentence: string, before: string | undefined): string | undefined =>
    before === undefined ? undefined : timeElsewhere(`${before} ${sentence}`, context.now, context.locale.language, context.locale.tag);
  const answers = sentencesOf(request).flatMap((sentence, at, all) => knownAnswer(sentence, context) ?? both(sentence, all[at - 1]) ?? []);
  return answers.length > 0 ? inOne(answers) : undefined;
}

/** Answers a request; reads it back when it knows nothing of it. */
export function builtInAnswer(request: string, context: AnswerContext): string {
  return knownAnswers(request, context) ?? inOne(sentencesOf(request).map((sentence) => readBack(sentence, context)));
}

function sentencesOf(request: string): string[] {
  return cut(request, longestRequest).split(/(?<=[.!?;])\s+|\n+/).filter((sentence) => plainWords(sentence).length > 0);
}

/** Says nothing twice. */
function inOne(answers: readonly string[]): string {
  return [...new Set(answers)].join(" ");
}

function readBack(sentence: string, { locale }: AnswerContext): string {
  const quoted = sentence.trim().replace(/[.!?;]+$/, "");
  return locale.language === "pt" ? `Você disse: ${quoted}.` : `You said: ${quoted}.`;
}

function localTime({ now, locale }: AnswerContext): string {
  return `${saidTime({ hours: now.getHours(), minutes: now.getMinutes() }, locale.language)}.`;
}

function longDate({ now, locale }: AnswerContext): string {
  return now.toLocaleDateString(locale.tag, { weekday: "long", day: "numeric", month: "long", year: "numeric" });
}
