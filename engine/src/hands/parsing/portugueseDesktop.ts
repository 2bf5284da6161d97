// The phrases by which Portuguese asks for what is on the desktop.

import type { Request } from "./meanings.ts";

export const portugueseDesktop: readonly Request[] = [
  [
    "lock",
    [
      "(bloqueia|bloqueie|bloquear|tranca|tranque|trancar|trava|trave|travar) [<the>] <screen>", "(bloqueio|bloquear) de tela",
      "(bloqueia|bloqueie|tranca|tranque|trava|trave|protege) [ai] [<the>] [meu|minha] <screen> [ai]",
      "(deixa|deixe) [<the>] <screen> (bloqueado|bloqueada|trancado|trancada)", "(ativa|ative) [o] bloqueio [de|da] tela",
      "tela de bloqueio", "(bloqueia|tranca|trava) tudo",
    ],
  ],
  [
    "screenshot",
    [
      "(tira|tire|tirar|faz|faca|fazer|captura|capture|capturar|salva|salve|da|de|bate|bata|pega|me da) [um|uma|o|a] " +
        "(print|captura|captura de tela|screenshot|foto da tela|print da tela|imagem da tela|print screen|printscreen|" +
        "captura da tela|screenshot da tela|foto do ecra|printe|print do ecra|fotografia da tela|print de tela|copia da tela|" +
        "instantaneo da tela) [disso|da tela|aqui]",
      "(captura|capture|capturar|fotografa|fotografe|printa|printe) [<the>] [minha] tela",
      "[um|uma] (captura de tela|captura da tela|print da tela|print|screenshot|print screen|foto da tela)",
      "(tira|tire|tirar|faz|faca|fazer|da|bate|pega|salva) [um|uma|o|a|ai] (print|captura|captura de tela|screenshot|foto|" +
        "imagem) (disso|disto|da tela|da minha tela|do meu computador|da tela toda|da tela inteira|desta tela|dessa tela|" +
        "dessa pagina|dessa janela|da janela|de tudo|do monitor|da area de trabalho) [ai|aqui|toda|inteira]",
      "(tira|tire|faz|faca|salva) [um|uma] (print|captura|screenshot) ai",
      "(printa|printe|captura|capture|fotografa|fotografe) (isso|isto|tudo|ai|essa tela|a tela|minha tela|a tela toda|a " +
        "tela inteira|essa pagina|essa janela)",
    ],
  ],
  [
    "openFolder",
    [
      "(abre|abra|abrir|mostra|mostre|mostrar|me mostra|me mostre|exibe|vai para|ver|va para|me leva para) [a|minha|o|meu|" +
        "na|a minha] (pasta|diretorio) [de|do|da|dos|das|chamada] {text}",
      "(quero ver|quero abrir|preciso de|preciso ver) [a|minha] (pasta|diretorio) [de|do|da|dos|das] {text} [pode] (abre|abrir|abre ai|abra)", "[me mostra|mostra|me diz|ver|quero ver] (o que|que) (tem|esta|ha) na [minha] pasta [de|do|da|dos|das] {text}",
      "(me mostra|me mostre|me abre|me abra|quero ver|posso ver|posso abrir|quero abrir|deixa eu ver|entra|entre|acessa|acesse|visualiza|navega) " +
        "[a|na|minha|o|meu|no|a minha|na minha|ate a] (pasta|diretorio) [de|do|da|dos|das|chamada|com|onde ficam|dos meus|" +
        "das minhas|com os|com as|com meus|com minhas] {text}",
      "(abre|abra|abrir|mostra|mostre) [a|minha|o] pasta (com|onde ficam|onde estao|com os|com as|com meus|com minhas|dos " +
        "meus|das minhas) [os|as|meus|minhas] {text}",
    ],
  ],
  [
    "openKnownFolder",
    [
      "(abre|abra|abrir|mostra|mostre|me mostra|vai para|quero ver|queria ver|deixa eu ver|posso ver|ver) [o|a|os|as|meu|minha|meus|minhas|os " +
        "meus|as minhas] {few:text}",
    ],
  ],
  [
    "openKnownApplication",
    [
      "(preciso de|preciso do|preciso da|quero|queria|liga|ligue|mostra|mostre|me mostra|me da|me de|me arruma|quero usar|preciso usar|usar|" +
        "bota|coloca|poe|chama|vai para|me leva para|traz|quero ver|preciso) [<the>] {few:text} [na tela|ai|aqui]",
    ],
  ],
  [
    "openAddress",
    [
      "(me leva|me leve|leva) (para|ate) [o|a] [site|pagina|endereco] {text}",
      "(quero ir|me leva|abre|abra|abrir|entra|entre|entrar|vai|va|acessa|acesse|acessar|visita|visite|navega|navegue|mostra|me leva|" +
        "carrega) [o|a|no|na|em|para|para o|ate] [site|pagina|endereco|pagina web|portal] [da|do|de] {text} [no navegador]",
      "<open> [o|meu] navegador (em|no|na|com) [o] [site|pagina|endereco] {text}",
    ],
  ],
  [
    "open",
    [
      "<open> [<the>] [aplicativo|app|programa|aplicacao|software] {text}",
      "(preciso|quero|queria|vou) [usar|mexer|abrir|trabalhar] [de|do|da|o|a|no|na|em] {few:text} [entao] (abre|abra|abre ai|abre ele|" +
        "abre ela|abre isso|pode abrir)",
      "(abre|abra|abrir) (o|a|os|as|meu|minha) [meus|minhas] {text}",
      "(quero|queria|preciso) [de] <the> {few:text} (aberto|aberta|abertos|rodando)",
      "(bota|coloca|poe) [<the>] {few:text} para (rodar|abrir)",
      "(me leva|vai|va) para [o|a] (aplicativo|app|programa) {few:text}",
      "(quero|preciso) (usar|abrir) [<the>] [aplicativo|app|programa] {few:text}",
      "(liga|ligue) (o aplicativo|o programa|o app) {text}",
    ],
  ],
];
