// Which words can be the name of a timer, a list or an application. What cannot be one makes a sentence talk.

import { plainWords } from "../../base/words.ts";

function set(words: string): ReadonlySet<string> {
  return new Set(words.split(/\s+/));
}

/** Days, and what corrects what was said before: "for five, no wait, ten minutes". */
const neverInNames = set(
  "today tomorrow tonight yesterday monday tuesday wednesday thursday friday saturday sunday hoje amanha ontem " +
    "no not wait sorry actually mean rather nao espera perai desculpa digo alias " +
    // What comes again and again is no name, and is not what would be set.
    "daily weekly monthly yearly hourly nightly every each recurring repeating weekday weekdays diario diaria semanal mensal anual cada",
);
/** Words that stand before "timer" without being its name. */
const neverInTimers = set(
  "a an any the my your this that these those what which another new first second last next other all every me us him her them it please is " +
    "are was were i you he she we they and or when while if dia dias natal ano mim nos o os um uma meu meus este esse isso nenhum outro novo todos de do ao " +
    "timer timers alarm alarms alarme temporizador lembrete ja ficou esta acabou already its their his her your our mine yours ours dele dela deles delas " +
    "well possibly let would " +
    "like about around roughly approximately some uns umas went goes is was off exploded per ago left over remaining later longer more early late que se quando eu voce ele ela pensar minus menos zero",
);
/** A list is not called so: "my shopping list is too long" tells something of it. */
const neverInLists = set(
  "on in onto off from add adds put also is are was were be being been has have had gets getting got needs need will would should can could does did esta estao era foi e sao " +
    "fica ficou ficando tem tinha vai precisa deve pode que too also well please tambem favor there ta",
);
/** What is added does not begin so: "what goes on the shopping list" asks, and "it" is not said. */
const neverFirstItem = set(
  "rid what who which how why when where nothing anything something everything it that this them those i you we he she they que quem qual quais " +
    "hear see read know ouvir ver ler saber escutar quanto quantos como quando onde nada algo tudo isso isto aquilo ele ela eles elas eu voce",
);
/** These are "the list", which needs no name. */
const theList = set("a an the my our your this that it o os um uma meu meus minha nossa este esse esta essa ela ele");
/** What an application's name does not begin with: "start over", "open your mind". */
const neverFirst = set(
  "ver ouvir ler aos ao nas no na the a an new your his her their our its over for to with again from about up me it that this these those him them us at on in off of by as and " +
    "i you we he she they who what why how when where if so too not no fire late early wide another some any every all both each mao de em " +
    "para isso isto aquilo com que se eu ele ela nos eles seu sua um uma outro outra cedo tarde logo quem quando como onde por muito mais menos more less",
);
/** Nor are these anywhere in one. */
const neverInApplications = set(
  "ta tava timers alarms reminders timer reminder alarmes lembretes lembrete temporizador should what which how when up again back going is are was were takes take has have makes make does can could will would hurts costs helps faz fazem fez esta sao tem vai vao pode doi custa leva ajuda foi era please thanks favor obrigado obrigada with com me my him her them us who whom whose because while until before esse essa esses essas aquele aquela dele dela comigo contigo porque " +
    "enquanto sempre nunca que eu since so everybody everyone somebody someone nobody alguem ninguem it ela ele isso isto open launch abre abra abrir",
);
/** "Five minutes, then ten" is no name, and "start the clock for twenty minutes" opens nothing. */
const lengths = /^(seconds?|minutes?|hours?|segundos?|minutos?|horas?)$/;
/** What people open, start and run that is no application. */
const things = set(
  "party festa door doors window windows gate mouth eye eyes mind heart hand hands arms jar jars bottle bottles can tin box package parcel present gift " +
    "presents letter envelope curtain curtains blinds fridge oven drawer cupboard wardrobe garage trunk hood umbrella wound wounds account " +
    "source fire fight fights war argument diet family business company car engine bike dishwasher laundry bath bathtub shower race " +
    "marathon mile miles errand errands risk question questions conversation debate week month year morning life porta portas janela " +
    "janelas portao boca olho olhos mente coracao mao maos bracos pote garrafa garrafas lata caixa pacote presente presentes carta envelope " +
    "cortina cortinas geladeira forno gaveta armario garagem guarda chuva ferida feridas conta jogo caminho espaco exceao excecao negocio " +
    "empresa carro motor moto briga brigas guerra discussao dieta familia fogo partida corrida maratona risco pergunta perguntas " +
    "conversa debate semana mes ano manha vida cabeca torneira chuveiro champanhe vinho cerveja pao processo inquerito concurso",
);
const mostApplicationWords = 5;

const months =
  "january|february|march|april|may|june|july|august|september|october|november|december|" +
  "janeiro|fevereiro|marco|abril|maio|junho|julho|agosto|setembro|outubro|novembro|dezembro";
/** "How long until the twelfth of June" asks after no timer. */
const date = new RegExp(`\\b(\\S+ (of|de) (${months})|(${months}) \\d+)\\b`);

/** The name of a timer or an alarm. */
export function isTimerName(said: string): boolean {
  const words = plainWords(said);
  // "Dever de casa" is a name, "de casa" is none.
  if (date.test(words.join(" "))) return false;
  const isInside = (at: number): boolean => at > 0 && at < words.length - 1 && /^(de|do|da|dos|das)$/.test(words[at]!);
  return words.every((word, at) => isInside(at) || (!neverInNames.has(word) && !neverInTimers.has(word) && !lengths.test(word)));
}

/** Words that are no thing, however many of them stand together: "remove the bread, you can", "tira da lista". */
const smallWords = set("oh ah uh um hmm you i we can could may please of from so then now de da do das dos pode podes voce ja ai agora por favor");

/** The name of a list as it was said, "" for the usual one, or undefined where it can be none. */
export function listName(said: string): string | undefined {
  const name = said.replace(/-/g, " ").replace(/\s+(?:for me|(?:pra|para) mim)$/iu, "");
  const words = plainWords(name);
  if (words.length > 0 && words.every((word) => theList.has(word))) return "";
  if (words.length > 0 && words.every((word) => smallWords.has(word))) return undefined;
  // "Põe peito de peru" names no list "peito de".
  if (/(?:^|\s)(?:de|da|dos|das|of|(?<!to )do)$/.test(words.join(" "))) return undefined;
  return words.some((word) => neverInNames.has(word) || neverInLists.has(word)) ? undefined : name;
}

/** So much is meant to be said yet: "add something to the list". */
const unsaid = new RegExp(
  "^(something|algo)$|^((some|a few|a couple of|one more|another|an|a|one) )?(thing|things|item|items|stuff|entry|entries)$|" +
    "^((uma|umas|alguma|algumas|outra|mais uma|um|uns|mais um|outro) )?(coisa|coisas|item|itens|negocio|trem|troco)$",
);
const otherLists = /\b(list|lista|listas|lists|(add|put) (it|them|that)|(coloca|poe|bota) (ele|ela|isso))\b|^(for me|(para|pra) mim)\b/;

const around = / (for me|for us|please|down|here|now|para mim|para a gente|por favor|aqui|ai|agora)$/;
const wholly = new RegExp(
  "^((for|about|of|to|that|de|sobre|que) )?((to )?(do|buy|say|tell|fazer|comprar|dizer|falar|anotar|lembrar( de)?) )?(X)$".replace(
    "X",
    "for me|para mim|(to )?(self|myself)|something|anything|algo|(a|one|another|some|this|that|uma?|umas|uns|alguma|mais uma|mais um|outra|outro|essa|esse) " +
      "((quick|new|little) )?(things?|thing or two|notes?|memo|reminder|message|coisas?|coisinha|negocio|trem|nota|anotacao|lembrete|recado)|" +
      "(isso|isto|this|that)|nota|anotacao|lembrete|note|memo|reminder",
  ),
);

/** Nothing is said yet of what is to be written down: "note something for me", "anota uma coisa". */
export function isEmptyNote(said: string): boolean {
  let words = plainWords(said).join(" ").replace(/\bpra\b/g, "para");
  for (let count = 0; count < 3; count++) words = words.replace(around, "");
  return wholly.test(words);
}

/** A reminder "for tomorrow at nine" is of nothing yet. */
const whenWords = new RegExp(
  "^(on|at|for|in|the|para|na|no|de|as|a|ao|pelas|today|tomorrow|tonight|monday|tuesday|wednesday|thursday|friday|saturday|sunday|hoje|amanha|segunda|terca|quarta|quinta|" +
    "sexta|sabado|domingo|feira|morning|afternoon|evening|night|manha|tarde|noite)$",
);

/** Nothing is named yet: "remind me of something". */
export function isUnsaid(said: string): boolean {
  if (plainWords(said).every((word) => whenWords.test(word))) return true;
  // "Of something at three": a part of the time may stand there.
  return unsaid.test(plainWords(said).join(" ").replace(/ (at|on|in|by|a|as|ao|no|na|em|para|daqui)( .*)?$/, ""));
}

/** "Milk, add it": what follows asks again. */
const asksAgain = /^(add|put|write|remove|take|cross|adiciona|coloca|coloque|bota|bote|poe|ponha|inclui|inclua|anota|tira|tire|risca|entao|so)$/;

export function isItem(said: string): boolean {
  const words = plainWords(said).join(" ");
  const items = said.split(",").map(plainWords).filter((item) => item.length > 0);
  if (items.some((item) => item.every((word) => smallWords.has(word)))) return false;
  if (items.slice(1).some(([first = ""]) => asksAgain.test(first)) || /. (add|adiciona|acrescenta) /.test(words)) return false;
  // "Balloons on the party list and milk" speaks of two lists, and "candles, add them" asks twice.
  if (unsaid.test(words) || otherLists.test(words)) return false;
  return !neverFirstItem.has(plainWords(said)[0] ?? "it");
}

const mostThingWords = 3;

/** They begin with what is done with a thing, or with who does it: "put something", "I was to add milk". */
const neverFirstThing =
  /^(add|put|write|get|set|read|delete|remove|clear|open|show|take|cross|strike|stick|pop|chuck|throw|place|note|jot|make|create|do|is|are|was|were|eu|a gente|voce|adicion\w+|coloc\w+|bot[aoe]\w*|po[ernm]\w*|inclu\w+|anot\w+|tir\w+|apag\w+|limp\w+|le|leia|ler|mostr\w+|abr\w+|marc\w+|joga\w*|ja|tem|algum\w*|chega|tudo|ia|iria|vou|ai|something|someone|nothing)$/;

/** Nothing but the names of things, without what is done with them. */
export function areBareThings(said: string): boolean {
  return areThings(said) && said.split(/\s*,\s*|\s+(?:and|e)\s+/iu).every((thing) => !neverFirstThing.test(plainWords(thing)[0] ?? ""));
}

/** Nothing but the names of things: "ketchup and mustard". */
export function areThings(said: string): boolean {
  const things = said.split(/\s*,\s*|\s+(?:and|e)\s+/iu).map((thing) => plainWords(thing.replace(/^(an?|some|the|uns?|umas?|[oa]s?)\s/iu, "")));
  const isPart = (word: string): boolean => !neverInApplications.has(word) && !neverInNames.has(word) && (word === "of" || word === "de" || !smallWords.has(word));
  const isThing = (words: readonly string[]): boolean => words.length > 0 && words.length <= mostThingWords && words.every(isPart);
  return isItem(said) && things.every(isThing);
}

/** What people time by naming it: what is cooked, and a few chores. The plain forms, without their plural. */
const timed = new RegExp(
  "^(egg|pasta|spaghetti|noodle|ramen|rice|pizza|tea|coffee|brew|cuppa|bread|toast|cake|cookie|biscuit|scone|muffin|pie|quiche|lasagne|lasagna|potato|tatty|tattie|" +
    "spud|chip|frie|carrot|broccoli|bean|lentil|veg|vegetable|chicken|turkey|beef|brisket|steak|roast|rib|pork|bacon|sausage|lamb|stew|soup|curry|chili|sauce|fish|salmon|" +
    "cod|prawn|shrimp|dough|oven|pan|pot|grill|barbecue|laundry|washing|dryer|wash|bath|nap|workout|plank|stretch|meditation|homework|piano|reading|shower|mask|dye|" +
    "ovo|macarrao|massa|miojo|arroz|feijao|lentilha|cha|cafe|chimarrao|mate|pao|torrada|bolo|biscoito|torta|quiche|lasanha|batata|mandioca|macaxeira|aipim|cenoura|legume|" +
    "frango|carne|costela|bife|churrasco|linguica|porco|peixe|bacalhau|camarao|sopa|caldo|canja|canjica|pamonha|pinhao|milho|pipoca|polenta|molho|brigadeiro|pudim|gelatina|" +
    "forno|panela|grelha|roupa|maquina|banho|cochilo|soneca|treino|prancha|alongamento|meditacao|licao|dever|piano|leitura|mascara|tintura)$",
);

const howTimed = /^(soft|hard|boiled|fried|baked|roast|sweet|green|black|white|brown|frozen|fresh|of|in|de|do|da|no|na|cozid[oa]s?|frit[oa]s?|assad[oa]s?|doces?|verdes?|pret[oa]s?|branc[oa]s?|cabelo|hair)$/;

/** What somebody names to have it timed: "eggs", "the rice", "pinhão na panela". */
export function isTimed(said: string): boolean {
  const words = plainWords(said);
  if (words.length === 0 || words.length > mostThingWords) return false;
  const isOne = (word: string): boolean => timed.test(word) || timed.test(word.replace(/s$/, "")) || timed.test(word.replace(/(?:es|oes)$/, "")) || timed.test(word.replace(/oes$/, "ao"));
  return words.some(isOne) && isTimerName(said) && words.every((word) => isOne(word) || howTimed.test(word));
}

/** Lists that people have; a "wish list" may be talk. */
export function isUsualList(said: string): boolean {
  return /^(shopping|grocer(y|ies)|to do|todo|packing|errands?|christmas|party|gifts?|presents?|(de )?(compras?|mercado|supermercado|feira|tarefas|afazeres|viagem|festa|presentes?))$/.test(plainWords(said).join(" "));
}

/** What nothing that is to be done begins with: who does it, what is asked, or what is said around a request. */
const neverFirstInTasks = set(
  "i you he she it we they who what which whose when where why how if whether that this there can could would will do does did am is are was were be " +
    "have has may might shall should please and or but so because again later not never just maybe also too of about eu tu voce ele ela nos eles elas quem que " +
    "qual quando onde como quanto ia iria as ao aos na no em de da do das dos at on in by for to with from se isso isto la aqui pode poderia por favor e ou mas entao porque de novo outra mais tarde depois nao nunca so talvez tambem sobre",
);
const mostTaskWords = 6;

/** Something to be done, or a thing: "ring the council", "tablets". */
export function isTask(said: string): boolean {
  const words = plainWords(said);
  if (words.length === 0 || words.length > mostTaskWords || neverFirstInTasks.has(words[0]!) || isUnsaid(said)) return false;
  if (/^(set|create|make|add|put|cria|crie|coloca|coloque|bota|poe|marca|faz)$/.test(words[0]!) || /^(a|an|the|um|uma)$/.test(words.at(-1)!)) return false;
  // "Move the plumber reminder to Thursday" is said of one that is set.
  if (/^(move|shift|push|change|switch|reschedule|postpone|delay) (the|my|our|that|this) /.test(words.join(" "))) return false;
  return !words.some((word) => neverInNames.has(word) || /^(me|us|eu|you|voce|remind|reminder|lembra|lembre|lembrete|timer|alarm|alarme)$/.test(word));
}

export function isApplicationName(said: string): boolean {
  const words = plainWords(said);
  if (words.length === 0 || words.length > mostApplicationWords || neverFirst.has(words[0]!) || words.some((word) => things.has(word))) return false;
  // "Calculator and calendar" are two.
  const parts = said.split(/\s+(?:and|e)\s+/iu);
  if (parts.length > 1 && parts.every((part) => isKnownApplication(part.replace(/^(?:the|my|an?|[oa]s?)\s+/iu, "")))) return false;
  // "Passwords and Keys" is one, "Firefox and then the calculator" is more.
  if (words.length > 3 && words.some((word) => /^(and|e)$/.test(word))) return false;
  return words.every((word) => !neverInNames.has(word) && !neverInApplications.has(word) && !lengths.test(word));
}

/** These are folders without the word. */
const knownFolders = /^(downloads|documents|pictures|photos|videos|documentos|imagens|fotos|vídeos|videos)$/i;

/** These are applications whatever is said of them: "I need the calculator". */
const knownApplications = new RegExp(
  "^(calculator|(web |internet )?browser|terminal|text editor|file manager|(system )?settings|calendar|(e-?mail|mail)( client)?|music player|" +
    "video player|camera|spreadsheets?|word processor|task manager|image viewer|calculadora|navegador( de internet)?|editor de textos?|" +
    "gerenciador de (arquivos|tarefas)|configurações|configuracoes|calendário|calendario|player de música|tocador de música|câmera|camera|planilhas?)$",
  "i",
);

export function isKnownFolder(said: string): boolean {
  return knownFolders.test(said);
}

export function isKnownApplication(said: string): boolean {
  return knownApplications.test(said);
}
