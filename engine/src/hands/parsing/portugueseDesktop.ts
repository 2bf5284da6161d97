// The phrases by which Portuguese asks for what is on the desktop.

import type { Request } from "./meanings.ts";

export const portugueseDesktop: readonly Request[] = [
  [
    "lock",
    [
      "(bloqueia|bloqueie|bloquear|tranca|tranque|trancar|trava|trave|travar) [<the>] <screen>", "(bloqueio|bloquear) de tela",
      "(ativa|ative) [o] bloqueio [de|da] tela", "tela de bloqueio",
    ],
  ],
  [
    "screenshot",
    [
      "(tira|tire|tirar|faz|faca|fazer|captura|capture|capturar|salva|salve|da|de|bate|bata|pega|me da) [um|uma|o|a] (print|captura|" +
        "captura de tela|screenshot|foto da tela|print da tela|imagem da tela|print screen|printscreen|captura da tela|screenshot da " +
        "tela|foto do ecra|printe|print do ecra|fotografia da tela|print de tela|copia da tela|instantaneo da tela) [disso|da tela|" +
        "aqui]",
      "(captura|capture|capturar|fotografa|fotografe|printa|printe) [<the>] [minha] tela",
      "(captura de tela|print da tela|print|screenshot)",
    ],
  ],
  [
    "openFolder",
    [
      "(abre|abra|abrir|mostra|mostre|mostrar|me mostra|me mostre|exibe|vai para|ver|va para|me leva para) [a|minha|o|meu|na|a " +
        "minha] (pasta|diretorio) [de|do|da|dos|das|chamada] {text}",
      "(o que|que) tem na [minha] pasta [de|do|da|dos|das] {text}",
    ],
  ],
  [
    "openKnownFolder",
    [
      "(abre|abra|abrir|mostra|mostre|me mostra|vai para) [o|a|os|as|meu|minha|meus|minhas|os meus|as minhas] {few:text}",
    ],
  ],
  [
    "openAddress",
    [
      "(abre|abra|abrir|entra|entre|entrar|vai|va|acessa|acesse|acessar|visita|visite|navega|navegue|mostra|me leva|carrega) [o|a|no|" +
        "na|em|para|para o|ate] [site|pagina|endereco|pagina web|portal] [da|do|de] {text} [no navegador]",
    ],
  ],
  [
    "open",
    [
      "<open> [<the>] [aplicativo|app|programa|aplicacao|software] {text}",
      "(abre|abra|abrir) (o|a|os|as|meu|minha) [meus|minhas] {text}",
      "(quero|preciso) (usar|abrir) [<the>] [aplicativo|app|programa] {few:text}",
      "(liga|ligue) (o aplicativo|o programa|o app) {text}",
    ],
  ],
];
