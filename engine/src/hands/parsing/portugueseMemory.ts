// The phrases by which Portuguese asks for what was talked about.

import type { Request } from "./meanings.ts";

/** What was talked about may be asked for with its day. */
function onADay(phrases: readonly string[]): string[] {
  return phrases.flatMap((phrase) => (phrase.endsWith("{text}") ? [`${phrase} [na|no|em|nessa|nesta] {past:day}`, phrase] : [phrase]));
}

export const portugueseMemory: readonly Request[] = [
  [
    "recall",
    onADay([
      "(sobre o que|do que|de que|o que|sobre que|que) (conversamos|falamos|a gente conversou|a gente falou|nos " +
        "conversamos|nos falamos|discutimos|eu falei|eu perguntei|eu te perguntei|perguntei|te perguntei|eu disse|eu pedi|" +
        "estavamos falando|estavamos conversando|eu te disse|eu te pedi|nos discutimos|conversei com voce|falei com voce|eu " +
        "conversei com voce|eu te falei|pedi|voce e eu conversamos|foi que conversamos|foi que falamos|e que conversamos|e " +
        "que falamos) [na|no|em] {past:day}",
      "(o que|que) (conversamos|falamos|dissemos|discutimos|a gente falou|a gente conversou|eu disse|eu falei|eu te disse|" +
        "eu perguntei|nos falamos|nos dissemos|nos discutimos|nos conversamos|eu te falei|eu te perguntei|voce disse) (sobre|de|do|da|a respeito de|a respeito do|a " +
        "respeito da) [o|a|os|as] {text}",
      "(a gente|nos|eu) (falou|conversou|falamos|conversamos|falei|disse) o que (sobre|de|do|da) [o|a|os|as] {text}",
      "quando [foi] [que] [nos|a gente|eu] [ja] (falamos|conversamos|falou|conversou|falei|discutimos|discutiu|tocamos no " +
        "assunto) [com voce] (sobre|de|do|da|dos|das|a respeito de) [o|a|os|as] {text}",
      "(o que|que) [foi] [que] (a gente|nos|eu|) [ja] (conversou|falou|discutiu|conversamos|falamos|discutimos|te disse|te " +
        "contei|falei|disse|te falei|comentei|decidiu|combinou) [com voce] (sobre|de|do|da|dos|das|a respeito de|a respeito " +
        "do|a respeito da) [o|a|os|as] {text}",
      "(o que|sobre o que|do que|de que|que) [foi] [que] [e que] (a gente|nos|eu|) [ja] (conversou|falou|discutiu|" +
        "conversamos|falamos|discutimos|te disse|te contei|falei|disse|te falei|comentei|estava falando|estava conversando|" +
        "estavamos falando|perguntei|te perguntei) [com voce] [na|no|em] {past:day}",
      "(a gente|nos|eu) (ja|alguma vez|chegou a|chegamos a) [ja] (falou|falamos|conversou|conversamos|falar|conversar|" +
        "falei|conversei|discutiu|discutimos) [com voce] (sobre|de|do|da|dos|das) [o|a|os|as] {text}",
      "(me lembra|me lembre|me diz|me diga|lembra|me conta) [do|de] (o que|que) [foi] [que] (a gente|nos|eu|) (conversou|" +
        "falou|falamos|conversamos|falei|disse|te disse) (sobre|de|do|da|dos|das) [o|a|os|as] {text}",
      "(me lembra|me lembre|me diz|me diga|me conta) [do|de|sobre] (o que|que) [foi] [que] (a gente|nos|eu|) (conversou|" +
        "falou|falamos|conversamos|falei|disse|te disse) [na|no|em] {past:day}",
      "quando (falamos|conversamos|a gente falou|a gente conversou|eu falei|eu perguntei|foi que falamos|foi que " +
        "conversamos|eu te perguntei|nos falamos) (sobre|de|do|da) [o|a|os|as] {text}",
      "(procura|procure|procurar|busca|busque|buscar|pesquisa|pesquise|pesquisar) (por|) {text} (nas|em|na) [nossas|" +
        "minhas] (conversas|conversa|historico|conversas antigas|conversas passadas)",
      "(procura|procure|procurar|busca|busque|buscar|pesquisa|pesquise) (nas|em) [nossas|minhas] (conversas|conversas " +
        "antigas|conversas passadas) [por|sobre|o|a] {text}",
      "(acha|ache|encontra|encontre|procura|procure|busca|mostra|mostre) (a|as|nossa|minhas|nossas) (conversa|conversas) " +
        "sobre [o|a] {text}",
      "(lembra|voce lembra|se lembra|voce se lembra) (do que|o que|de que|sobre o que) (conversamos|falamos|eu disse|eu " +
        "falei|a gente conversou|a gente falou) {past:day}",
      "(lembra|voce lembra|se lembra|voce se lembra) (do que|o que|de que) (conversamos|falamos|eu disse|eu falei|a gente " +
        "conversou|a gente falou) sobre [o|a] {text}",
      "(ja falamos|ja conversamos|nos ja falamos|a gente ja falou) (sobre|de|do|da) [o|a] {text}",
      "qual foi [o assunto da|o assunto de|o tema da] [nossa] conversa [de] {past:day}",
      "(conversamos|falamos|a gente conversou|a gente falou) (sobre o que|de que|o que|do que) [na|no|em|nessa|nesta] {past:day}",
      "{past:day} (conversamos|falamos|a gente conversou) sobre o que",
      "(a gente|nos|) nao (falou|falamos|conversou|conversamos) (sobre|de|do|da|dos|das) [o|a|os|as] {text} [um dia desses|outro dia|esses dias] ?",
      "(a gente|nos|) (falou|falamos|conversou|conversamos) [alguma coisa|algo] (sobre|de|do|da|dos|das) [o|a|os|as] {text} ?",
    ]),
  ],
  [
    "forget",
    [
      "(esquece|esqueca|esquecer|apaga|apague|apagar|deleta|delete|deletar|exclui|exclua|excluir|limpa|limpe|elimina|" +
        "elimine|remove|remova|descarta|descarte) (esta|essa|nossa|a nossa|toda esta|toda essa|a|toda a) (conversa|" +
        "discussao) [inteira|toda|atual|da memoria|da sua memoria|toda da memoria]",
      "(esquece|esqueca|apaga|apague|esquecer) (tudo o que|tudo que|o que) (conversamos|falamos|eu disse|eu falei|a gente " +
        "conversou|a gente falou|eu te disse|dissemos|eu acabei de dizer|acabamos de falar|acabei de falar|eu acabei de " +
        "falar|acabamos de conversar|discutimos) [nesta conversa|nessa conversa|agora|aqui|ate agora]",
      "(esquece|apaga) tudo [o] que (a gente|nos) (falou|conversou|falamos|conversamos|disse) [agora|hoje|aqui]",
      "nao (guarda|guarde|salva|salve|lembra|armazene) (esta|essa) conversa",
      "(esquece|esqueca|apaga|apague|exclui|exclua|deleta|delete|limpa|limpe|elimina|elimine) (tudo|tudo isso|tudo o que|" +
        "tudo que|o que|isso que|aquilo que) [que] (a gente|nos|eu|voce e eu|) [acabou de|acabamos de|acabei de|ja] " +
        "(conversou|falou|discutiu|conversamos|falamos|disse|falei|te disse|te falei|falar|conversar|dizer|contei|te contei) " +
        "[agora|hoje|aqui|nessa conversa|nesta conversa|agora ha pouco|ate agora|ate aqui]",
      "(joga fora|jogue fora|some com|suma com|da um fim em) (esta|essa|nossa) conversa",
      "(esquece|esqueca|apaga|apague|exclui|exclua|deleta|delete) (a|essa|esta|nossa|toda a|toda essa) [nossa] conversa " +
        "[toda|inteira|de agora|de hoje]",
      "(quero|preciso) que voce (esqueca|apague) (esta|essa|nossa|a nossa) conversa",
      "(apaga|apague) [o|] historico (desta|dessa|da) conversa",
    ],
  ],
];
