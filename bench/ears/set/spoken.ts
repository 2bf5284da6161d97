// What synthetic voices say in the set, and which voices.

export interface Voice {
    name: string;
    /** Speaks this text into this file. */
    command: (text: string, file: string) => string[];
}

export type SpokenKind =
    | "synthetic" | "portuguese-phrase" | "portuguese-sentence"
    | "name" | "name-inside" | "name-choosing" | "alike" | "alike-choosing" | "other-name" | "question";

export interface Spoken {
    kind: SpokenKind;
    voice: Voice;
    words: string;
    language: "en" | "pt";
    /** The name that is called, for clips that call one. */
    name?: string;
    /** What counts beside the name, for such a clip. */
    request?: string;
}

const espeak = (voice: string, ...options: string[]): Voice => ({
    name: ["espeak-ng", voice, ...options].join(" "),
    command: (text, file) => ["espeak-ng", "-b", "1", "-v", voice, "-s", "145", ...options, "-w", file, text],
});
const flite = (voice: string, ...options: string[]): Voice => ({
    name: ["flite", voice, ...options].join(" "),
    command: (text, file) => ["flite", "-voice", voice, ...options, "-t", text, "-o", file],
});

const readers = [espeak("en-us"), flite("slt"), flite("awb")];
const callers = [espeak("en-us"), espeak("en-gb"), flite("awb"), flite("kal16"), flite("rms"), flite("slt")];
/** None of those who call in the half that is reported. */
const otherCallers = [
    espeak("en-gb-x-rp"), espeak("en-gb-scotland"), espeak("en-us+m3", "-p", "35"), flite("kal"),
    flite("rms", "--setf", "int_f0_target_mean=130", "--setf", "duration_stretch=1.15"),
    flite("slt", "--setf", "int_f0_target_mean=200", "--setf", "duration_stretch=0.9"),
];
const otherReaders = [otherCallers[0]!, otherCallers[4]!, otherCallers[5]!];
const brazilians = [espeak("pt-br"), espeak("pt-br+f2")];

/** Ordinary requests and remarks. */
const sentences = [
    "Could you tell me what time it is in Lisbon right now?", "Remind me to call my sister tomorrow evening.",
    "The train to the coast leaves at half past seven.", "Please write down that we need milk, bread and apples.",
    "How far is it from the earth to the moon?", "I would like to hear some music while I cook.",
    "Turn the lights off in the kitchen and in the hall.", "What did the doctor say about your knee?",
    "My neighbour has painted his fence green.", "Read the last message to me once more.",
    "We have not seen each other since the summer.", "Who wrote the book about the old man and the sea?",
    "Put the meeting with the architect on Thursday.", "It is going to rain all weekend, I am afraid.",
    "Can you open the document that I worked on yesterday?", "The children are asleep, so please speak softly.",
    "How do I get a coffee stain out of a white shirt?", "She plays the piano better than anybody I know.",
    "Set a timer for twelve minutes.", "There is somebody at the door with a parcel.",
    "Explain to me how a battery works, in one sentence.", "The museum is closed on the first Monday of the month.",
    "I forgot where I put my keys.", "Translate this letter into Portuguese for me.", "Let us talk about something else.",
];

const called: [string, string][] = [
    ["Palomet, what time is it?", "What time is it?"],
    ["Hey Palomet, tell me a story.", "Tell me a story."],
    ["Palomet.", ""],
    ["What is the weather like, Palomet?", "What is the weather like?"],
    ["Okay Palomet, turn off the lights in the kitchen.", "Turn off the lights in the kitchen."],
    ["Palomet, how far is it to the moon?", "How far is it to the moon?"],
    ["Could you read that again, Palomet?", "Could you read that again?"],
    ["Hello Palomet.", ""],
    ["Good evening, Palomet.", "Good evening."],
];
const calledInside: [string, string][] = [
    ["Tell me, Palomet, what day it is.", "Tell me what day it is."],
    ["I think, Palomet, that we should stop now.", "I think that we should stop now."],
    ["And then, Palomet, read me the news.", "And then read me the news."],
];
const calledElsewhere: [string, string][] = [
    ["Palomet, play some music.", "Play some music."],
    ["Hi Palomet, who are you?", "Who are you?"],
    ["Hey Palomet.", ""],
    ["Set a timer for ten minutes, Palomet.", "Set a timer for ten minutes."],
    ["Palomet, remind me to buy bread tomorrow.", "Remind me to buy bread tomorrow."],
    ["Thank you, Palomet.", "Thank you."],
    ["Okay Palomet, what is on my list?", "What is on my list?"],
    ["Palomet, stop.", "Stop."],
    ["Is it going to rain today, Palomet?", "Is it going to rain today?"],
];
const otherNames: [string, string[]][] = [
    ["Computer", ["Computer, what time is it?", "Hey Computer, tell me a story.", "What is the weather like, Computer?"]],
    ["Maria Clara", ["Maria Clara, what time is it?", "Hey Maria Clara, tell me a story.", "What is the weather like, Maria Clara?"]],
    ["Old Man River", ["Old Man River, what time is it?", "Hey Old Man River, tell me a story.", "What is the weather like, Old Man River?"]],
    ["Zephyrine", ["Zephyrine, what time is it?", "Hey Zephyrine, tell me a story.", "What is the weather like, Zephyrine?"]],
];

/** What sounds like the name, at the places where it is called. */
const alike = [
    "Parliament has been closed since Friday.", "Hey Paul, did you see the game?", "Paul Ahmed is on the phone.",
    "The pilot met us at the gate.", "A pal I met told me about it.", "Pallets are stacked behind the shop.",
    "Palace gardens are open today.", "Hello Pamela, how are you?", "Polymer clay gets hard in the oven.",
    "Okay Paula, let us go.", "Palomino horses are golden.", "Helmets are required on this site.",
    "He walked past the parliament.", "That was the friend Paul met.", "Nobody could find the palette.",
    "She is afraid of the comet.", "We ate at the hotel Palermo.", "I have never seen such a planet.",
    "Hand me the omelette.", "It is a matter of parameters.", "He is wearing a blue helmet.",
    "Pull over and wait.", "Public holidays are quiet here.", "Hey, call a medic.", "I bought it for my palm.",
    "Plum jam is on the table.", "The color is called pale mint.",
];
const alikeElsewhere = [
    "Parliaments change slowly.", "Paul might come later.", "Hey Paul met somebody new.", "Palm trees grow along the road.",
    "The plumber came at nine.", "Paul, omit the last line.", "Pelicans were on the pier.", "Hello, Paul Emmet speaking.",
    "A lot of it was wasted.", "Polo matches last two hours.", "Salami, and a piece of bread.", "Ballots are counted tonight.",
    "He voted for the parliament.", "You should see that pilot.", "I put it on the pallet.", "That is not what Paula meant.",
    "They built a new palace.", "It fell out of my pocket.", "We stayed until the climate changed.", "She gave me a bracelet.",
    "Where is the calamine?", "Follow me to the market.", "Okay Pam, it is your turn.", "Bologna is a city in Italy.",
    "Hey, pour me a coffee.", "All of it is ready.", "Do you know Palmer's?",
];

/** What the Portuguese grammar knows. */
const phrases = [
    "que horas são", "que horas são agora", "me diga as horas", "você sabe que horas são", "que dia é hoje", "qual é a data de hoje",
    "o que você sabe fazer", "me ajuda", "quem é você", "qual é o seu nome", "como você se chama", "repete por favor", "diga de novo",
    "bom dia", "boa noite", "obrigado", "nova conversa", "cancela", "desliga o microfone", "apaga o rascunho",
];
/** What it does not know. */
const unknown = [
    "o gato dormiu em cima do sofá", "amanhã vou viajar para o interior", "a feira começa às seis da manhã",
    "o café está esfriando na cozinha", "meu irmão comprou uma bicicleta", "não esqueça de fechar a janela",
    "a chuva não para desde ontem", "ela gosta de cantar no chuveiro", "o ônibus atrasou outra vez", "vamos pintar a parede de verde",
];

export function spoken(): Spoken[] {
    const each = (kind: SpokenKind, voices: Voice[], texts: string[], more: Partial<Spoken> = {}): Spoken[] =>
        texts.flatMap((words) => voices.map((voice) => ({ kind, voice, words, language: "en" as const, ...more })));
    const calls = (kind: SpokenKind, voices: Voice[], texts: [string, string][]): Spoken[] =>
        texts.flatMap(([words, request]) => each(kind, voices, [words], { name: "Palomet", request }));
    return [
        ...each("synthetic", readers, sentences),
        ...each("portuguese-phrase", brazilians, phrases, { language: "pt" }),
        ...each("portuguese-sentence", brazilians.slice(0, 1), unknown, { language: "pt" }),
        ...calls("name", callers, called),
        ...calls("name-inside", callers, calledInside),
        ...calls("name-choosing", otherCallers, calledElsewhere),
        ...each("alike", readers, alike),
        ...each("alike-choosing", otherReaders, alikeElsewhere),
        ...otherNames.flatMap(([name, texts]) => each("other-name", readers, texts, { name })),
    ];
}
