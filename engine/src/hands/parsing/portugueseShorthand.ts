// What Portuguese asks for in as few words as it takes: "ovo sete minutos", "leite na lista de compras", "pasta downloads". It counts only
// where nothing else is understood, and for the whole of what was said.

import type { Request } from "./meanings.ts";

export const portugueseShorthand: readonly Request[] = [
  [
    "timeThis",
    [
      "{duration} {few:name}", "[<the>] {word:name} (no|na) (forno|panela|fogo|microondas|geladeira|freezer|maquina) {duration} [marca ai|marca|marca ai tche]",
      "[<the>] {few:name} {duration} [marca ai|marca|valendo|a partir de agora|contando]", "{duration} (para|para o|para a|para os|para as|no|na) {few:name}",
    ],
  ],
  ["setTimer", ["{duration} (valendo|a partir de agora)"]],
  ["wake", ["(cochilo|soneca|cochilinho) [de] {duration} [e|depois] (me acorda|me acorde|acorda eu)"]],
  [
    "remindTask",
    [
      "<remind> {moment} {text}", "<remind> (em|daqui|daqui a) {duration} {text}", "{moment} <remind> [<about>] {text}", "(em|daqui|daqui a) {duration} <remind> {text}",
      "{text} <remind> {moment}", "{text} <remind> (em|daqui|daqui a) {duration}", "<remind> {text} {moment}",
    ],
  ],
  ["readBareList", ["[minha|nossa|a] lista [de|da|do|das|dos|para|para o|para a] {few:list}"]],
  ["addThese", ["{text} (na|para a|a) [minha|nossa] lista [de|da|do|das|dos|para|para o|para a] {few:list}"]],
  ["takeThese", ["{text} fora da [minha|nossa] lista [de|da|do|das|dos|para|para o|para a] {few:list}"]],
  ["note", ["nota nova {text}"]],
  ["openKnownApplication", ["[<the>] {few:text}"]],
  ["openKnownFolder", ["[<the>] pasta [de|da|do|dos|das] [meus|minhas] {few:text} [abre|abre ai]"]],
  ["forget", ["(apaga|apague|esquece|limpa|deleta) (nossas|as nossas|as|essas|minhas) conversas"]],
  ["recall", ["(que|o que) [que] (a gente|nos|eu) (proseou|prosiou|papeou|trocou ideia|conversamos) [na|no|em] {past:day}", "{past:day} (falamos|conversamos|a gente falou) (de que|do que|sobre o que)"]],
];
