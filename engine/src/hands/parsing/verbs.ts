// The forms of a verb by which somebody may be asked: "coloca", "coloque", "colocar", "setting". A phrase names one of them, and takes all.
// Forms that tell of the past or of oneself ("coloquei", "coloco") are none.

import type { Language } from "../../base/language.ts";

/** Portuguese verbs whose forms follow the rule. A form that is another word as well ("para", "lista", "casa") stands for itself. */
const regular = `
  abaixar abrir acabar acessar acionar acordar acrescentar adiar adicionar agendar ajustar alterar anotar anular apagar apertar apitar armar
  atrasar ativar aumentar avancar avisar baixar bloquear botar buscar calcular cancelar capturar carregar chamar checar cochichar
  colocar comecar conferir configurar consultar continuar converter cortar criar cronometrar deixar deletar desativar descartar
  desligar desmarcar desmutar despausar despertar devolver diminuir disparar dividir eliminar elevar emudecer encerrar entrar escrever
  esquecer excluir executar exibir falar fotografar gravar guardar iniciar incluir informar inserir interromper jogar lancar lembrar levantar ligar
  limpar mandar marcar mostrar mudar multiplicar mutar navegar nomear passar pausar pegar perguntar pesquisar por printar procurar programar
  pular reativar recomecar recordar reduzir registrar regular relembrar religar remover repetir reproduzir retirar retomar retornar
  riscar rodar salvar silenciar soltar somar subir subtrair sussurrar tirar tocar tomar transformar trancar travar trocar
  verificar visitar voltar zerar`;

const irregular: Record<string, string> = {
  por: "poe ponha", fazer: "faz faca", ler: "le leia", ouvir: "ouve ouca", dizer: "diz diga", descer: "desce desca",
  subir: "sobe suba subindo", repetir: "repete repita", despertar: "desperta desperte", seguir: "segue siga", excluir: "exclui exclua",
  incluir: "inclui inclua", diminuir: "diminui diminua", reduzir: "reduz reduza", reproduzir: "reproduz reproduza", conferir: "confere confira",
  inserir: "insere insira", abrir: "abre abra", subtrair: "subtrai subtraia", trazer: "traz traga",
};
const otherWords = new Set(["por", "para", "de", "da", "marca", "regular", "toma", "chama"]);

function portugueseForms(infinitive: string): string[] {
  const stem = infinitive.slice(0, -2);
  if (irregular[infinitive]) return [infinitive, ...irregular[infinitive].split(" "), `${infinitive.slice(0, -1)}sse`];
  if (!infinitive.endsWith("ar")) return [infinitive, `${stem}e`, `${stem}a`, `${infinitive.slice(0, -1)}sse`];
  const soft = stem.endsWith("c") && !softened.has(infinitive) ? `${stem.slice(0, -1)}qu` : stem.endsWith("g") ? `${stem}u` : stem;
  return [infinitive, `${stem}a`, `${soft}e`, `${stem}asse`];
}

/** Without its cedilla the "c" of these looks hard. */
const softened = new Set(["avancar", "comecar", "recomecar", "lancar"]);

const english = `
  set turn make take open add remind wake play pause stop skip lock tell show read write note put start cancel mute unmute lower raise
  launch check give delete remove create switch bring pull increase decrease reduce grab capture snooze speak talk convert
  calculate go let get cross tick jot resume silence clear forget close keep do shut time repeat save shoot snap boost drop crank
  bump schedule ring alert ping nudge jog scratch erase list find look run load quit end kill fire browse visit count work move`;

function gerundOf(verb: string): string {
  if (/^(set|stop|skip|put|cut|let|get|shut|run|forget|grab|drop|jot|jog|snap|quit|scrap)$/.test(verb)) return `${verb}${verb.at(-1)}ing`;
  return verb.endsWith("e") && verb !== "be" ? `${verb.slice(0, -1)}ing` : `${verb}ing`;
}

function words(list: string): string[] {
  return list.trim().split(/\s+/);
}

const lemmas: Record<Language, ReadonlyMap<string, string>> = {
  en: new Map([...words(english).map((verb) => [gerundOf(verb), verb] as const), ["cancelling", "cancel"]]),
  pt: new Map(
    [...words(regular), ...Object.keys(irregular)].flatMap((verb) =>
      portugueseForms(verb).filter((form) => !otherWords.has(form)).map((form) => [form, verb] as const),
    ),
  ),
};

/** The verb that a Portuguese word is a form of, or the word itself. */
export function lemmaOf(plain: string, language: Language): string {
  return language === "pt" ? (lemmas.pt.get(plain) ?? plain) : plain;
}

/** One of the Portuguese verbs, as it follows the one who is to do it. */
export function isInfinitive(plain: string): boolean {
  return lemmas.pt.get(plain) === plain;
}

/** After these an English verb has the ending that phrases have not: "would you mind turning it down". */
const beforeGerund = /^(mind|about|appreciate|start|try|of)$/;

const irregularPast: Record<string, string> = {
  woke: "wake", told: "tell", gave: "give", took: "take", read: "read", wrote: "write", made: "make", got: "get", ran: "run", spoke: "speak",
  brought: "bring", let: "let", kept: "keep", did: "do", found: "find", forgot: "forget", shut: "shut", put: "put", set: "set",
};
const pasts: ReadonlyMap<string, string> = new Map([
  ...words(english).map((verb) => [pastOf(verb), verb] as const), ["cancelled", "cancel"], ...Object.entries(irregularPast),
]);

function pastOf(verb: string): string {
  if (/^(stop|skip|grab|drop|jot|jog|snap|scrap)$/.test(verb)) return `${verb}${verb.at(-1)}ed`;
  return verb.endsWith("e") ? `${verb}d` : `${verb}ed`;
}

/** "Turning" is "turn" where `before`, the words before it, asks for it, and "woke" is "wake" in "if you woke me". */
export function baseOf(plain: string, before: readonly (string | undefined)[]): string {
  const [last, other] = before;
  if (last === "you" && other === "if") return pasts.get(plain) ?? plain;
  return last !== undefined && beforeGerund.test(last) ? (lemmas.en.get(plain) ?? plain) : plain;
}
