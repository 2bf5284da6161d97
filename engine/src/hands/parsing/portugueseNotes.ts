// The phrases by which Portuguese asks for notes and lists.

import type { Request } from "./meanings.ts";

export const portugueseNotes: readonly Request[] = [
  [
    "addToList",
    [
      "<addverb> [ai] {text} <onto> [minha|nossa|meu|nosso] lista <listname>", "<addverb> [ai] {text} <onto> [minha|nossa] lista",
      "<addverb> <onto> [minha|nossa] lista <listname> {text}", "<onto> [minha|nossa] lista <listname> <addverb> {text}",
      "(quero|preciso de|precisamos de) {text} <onto> [minha|nossa] lista <listname>",
      "<addverb> {text} (nas compras|aos afazeres|nas tarefas|nos afazeres)",
    ],
  ],
  [
    "removeFromList",
    [
      "<removeverb> {text} <ofwhose> lista <listname>", "<removeverb> {text} <ofwhose> lista",
      "<removeverb> <ofwhose> lista <listname> {text}",
      "(ja comprei|comprei) [o|a|os|as] {text} (tira|risca|pode tirar|pode riscar) <ofwhose> lista <listname>",
      "nao preciso mais de {text} na [minha] lista <listname>",
    ],
  ],
  [
    "readNotes",
    [
      "<readverb> [todas] [<the>] [ultimas|ultima] (notas|anotacoes|nota|anotacao) [para mim|em voz alta]",
      "(o que|que) (tem|esta|ha|esta escrito|eu tenho|tenho) (nas|em) [minhas] (notas|anotacoes)",
      "(o que|que) (eu anotei|anotei|eu escrevi|eu pedi para anotar|pedi para voce anotar|eu pedi para voce anotar|ficou anotado|" +
        "voce anotou)",
      "(quais|que) (notas|anotacoes) (eu tenho|tenho|ha|tem|eu fiz|existem)", "quais sao [<the>] (notas|anotacoes)",
      "(tenho|tem|eu tenho|ha) [alguma|algumas] (nota|notas|anotacao|anotacoes)", "minhas (notas|anotacoes)",
      "quantas (notas|anotacoes) (eu tenho|tenho|tem|ha)", "quais [sao] as minhas (notas|anotacoes)", "o que eu tenho anotado",
    ],
  ],
  [
    "tellLists",
    [
      "(quais|que) listas (eu tenho|tenho|existem|ha|tem|temos|eu fiz|nos temos)", "quais sao [<the>] listas",
      "<readverb> [todas] [<the>] listas", "minhas listas", "quantas listas (eu tenho|tenho|ha|tem)",
      "(tenho|tem|eu tenho) [alguma|algumas] listas",
    ],
  ],
  [
    "readList",
    [
      "(o que|que|o que mais|que coisas|quais itens|o que e que|que itens) (tem|esta|ha|temos|tenho|eu tenho|eu coloquei|falta|ainda " +
        "tem|existe|estao|ta|ficou|eu pus|consta) <ofwhose> lista <listname> [ate agora]",
      "(o que|que) (tem|esta|ha|temos|tenho) <ofwhose> lista",
      "<readverb> [o que tem|os itens|tudo que tem|tudo o que esta|o que esta|o conteudo] [<whose>|<ofwhose>] lista <listname> [para " +
        "mim|em voz alta]",
      "<readverb> <whose> lista [para mim|em voz alta]",
      "(o que|que) (eu|a gente|nos|) [ainda] (preciso|precisa|precisamos|tenho que|tenho de|temos que|devo|falta|tem que) comprar " +
        "[no mercado|no supermercado|na feira|hoje]",
      "(o que|que) (preciso|precisamos|tenho que|falta|temos que|devo|tem que) comprar [no mercado|no supermercado|hoje]",
      "(tem|ha|existe) (algo|alguma coisa|alguma) <ofwhose> lista <listname>",
      "(quantos|quantas) (itens|coisas) (tem|ha|tenho|estao) <ofwhose> lista <listname>",
      "(como esta|como ficou|qual e|qual) <whose> lista <listname>", "(o|a) {few:text} (esta|ta) <ofwhose> lista <listname>",
      "tem {few:text} <ofwhose> lista <listname>", "[minha|nossa|a minha] lista <listname>", "o que falta comprar",
      "que (itens|coisas) estao <ofwhose> lista <listname>",
    ],
  ],
  [
    "note",
    [
      "(anota|anote|anotar|toma nota|tome nota|tomar nota|escreve|escreva|registra|registre|registrar|faz uma nota|faca uma nota|faz " +
        "uma anotacao|faca uma anotacao|cria uma nota|crie uma nota|cria uma anotacao|crie uma anotacao|criar uma nota|nova nota|" +
        "nova anotacao|nota|guarda|guarde|adiciona uma nota|adicione uma nota|salva uma nota|salve uma nota|anota ai|anote ai|" +
        "escreve ai|deixa anotado|deixe anotado|deixa registrado|toma nota ai|escreve uma nota|escreva uma nota|grava uma nota|grave " +
        "uma nota|fazer uma nota|lembre se|salva|salve) (que|dizendo|dizendo que|de que|falando que|com o texto|sobre|para dizer que|" +
        "assim) {text}",
      "(anota|anote|anotar|toma nota|tome nota|anota ai|anote ai|faz uma nota|faca uma nota|faz uma anotacao|faca uma anotacao|cria " +
        "uma nota|crie uma nota|nova nota|nova anotacao|toma nota ai|escreve ai|anota isso|anote isso|anota isso ai|escreve uma nota|" +
        "escreva uma nota|deixa anotado|registra ai|escreve isso|registre isso|anota para mim) {text}",
      "(adiciona|adicione|coloca|coloque|bota|bote|poe|ponha|escreve|escreva|salva|salve|guarda|guarde|inclui|inclua) {text} (nas|em|" +
        "as|nas minhas|em minhas|as minhas) (notas|anotacoes)",
      "(adiciona|adicione|coloca|coloque|escreve|escreva|poe|ponha) (nas|em) [minhas] (notas|anotacoes) [que] {text}",
      "nas minhas (notas|anotacoes) (escreve|escreva|coloca|coloque|anota) [que] {text}", "nao (esquece|esqueca) que {text}",
      "lembra que {text}", "lembre que {text}", "lembre se [de] que {text}",
    ],
  ],
];
