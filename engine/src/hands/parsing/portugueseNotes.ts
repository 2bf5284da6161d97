// The phrases by which Portuguese asks for notes and lists.

import type { Request } from "./meanings.ts";

export const portugueseNotes: readonly Request[] = [
  [
    "addToList",
    [
      "<addverb> [ai] {text} [tambem|ai] <onto> [minha|nossa|meu|nosso] lista <listname>",
      "[na|a|minha|nossa|na minha] lista <listname> <addverb> {text}",
      "(quero|queria|eu quero|preciso de|precisamos de|gostaria de|falta|faltou|vai) [por|colocar|botar|adicionar|incluir|acrescentar] " +
        "{text} <onto> [minha|nossa] lista <listname>",
      "<addverb> [ai] {text} <onto> [minha|nossa] lista", "<addverb> <onto> [minha|nossa] lista <listname> {text}",
      "<onto> [minha|nossa] lista <listname> <addverb> {text}",
      "(quero|preciso de|precisamos de) {text} <onto> [minha|nossa] lista <listname>",
      "(precisa entrar|tem que entrar|tem que ir|precisa ir|entra) {text} <onto> [minha|nossa] lista <listname>",
      "<addverb> {text} (nas compras|aos afazeres|nas tarefas|nos afazeres)",
    ],
  ],
  ["listThese", ["[na|a|para a|minha|nossa|na minha|na nossa] lista <listname> , {text}"]],
  [
    "removeFromList",
    [
      "<removeverb> {text} <ofwhose> lista <listname>", "<removeverb> {text} <ofwhose> lista",
      "<removeverb> <ofwhose> lista <listname> {text}",
      "nao preciso mais de {text} na [minha] lista <listname>",
    ],
  ],
  [
    "clearList",
    [
      "(limpa|limpe|esvazia|esvazie|zera|zere|limpar|esvaziar|zerar) [toda|inteira] " +
        "[<whose>] lista [toda|inteira] <listname> [toda|inteira]",
      "(limpa|limpe|esvazia|esvazie|zera|zere|limpar|esvaziar|zerar) [toda] [<whose>] lista [toda|inteira]",
      "(tira|tire|apaga|apague|remove|remova|risca|risque|limpa|limpe) (tudo|todos os itens|todas as coisas) <ofwhose> lista <listname>",
      "(tira|tire|apaga|apague|remove|remova|risca|risque|limpa|limpe) (tudo|todos os itens|todas as coisas) <ofwhose> lista",
    ],
  ],
  [
    "readNotes",
    [
      "<readverb> [todas] [<the>] [ultimas|ultima] (notas|anotacoes|nota|anotacao) [para mim|comigo|em voz alta]",
      "(o que|que) (tem|esta|ha|esta escrito|eu tenho|tenho) (nas|em) [minhas] (notas|anotacoes)",
      "(o que|que) [que] (eu|) (tinha anotado|anotei|tenho anotado) [mesmo]", "(o que|que) (dizem|diz) [<the>] (notas|anotacoes)", "(posso|da para|pode me deixar) (ouvir|ver|ler) [<the>] (notas|anotacoes)",
      "<readverb> [de volta|para mim] o que (eu|) (anotei|escrevi|ditei)",
      "[<readverb>] [para mim] (o que|que) (eu|) (mandei|pedi para|te pedi para|falei para|disse para) [voce|tu] (anotar|escrever|" +
        "guardar|registrar)",
      "(o que|que) (eu anotei|anotei|eu escrevi|eu pedi para anotar|pedi para voce anotar|eu pedi para voce anotar|ficou " +
        "anotado|voce anotou)",
      "(quais|que) (notas|anotacoes) (eu tenho|tenho|ha|tem|eu fiz|existem)", "quais sao [<the>] (notas|anotacoes)",
      "(tenho|tem|eu tenho|ha) [alguma|algumas] (nota|notas|anotacao|anotacoes)", "minhas (notas|anotacoes)",
      "quantas (notas|anotacoes) (eu tenho|tenho|tem|ha)",
      "(tem|ha|existe|existem|tenho|eu tenho) (nota|notas|anotacao|anotacoes|alguma nota|alguma anotacao|algo anotado|" +
        "alguma coisa anotada) [para mim]",
      "(o que|que) [e que] (eu|a gente|voce|) (tem|tenho|ha|deixei|deixou|guardei|salvei) (anotado|nas notas|nas anotacoes)",
      "(quero|queria|gostaria de) (ver|ouvir|ler) [<the>] (notas|anotacoes)",
      "(qual|qual e|qual foi) [<the>] (ultima nota|ultima anotacao)", "quais [sao] as minhas (notas|anotacoes)",
      "o que eu tenho anotado",
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
      "(o que|que|o que mais|que coisas|quais itens|o que e que|que itens) (tem|esta|ha|temos|tenho|eu tenho|eu coloquei|" +
        "falta|ainda tem|existe|estao|ta|ficou|eu pus|consta) <ofwhose> lista <listname> [ate agora]",
      "(o que|que) (tem|esta|ha|temos|tenho) <ofwhose> lista", "<ofwhose> lista <listname> (tem|ha|esta|temos|falta) (o que|que|quais " +
        "coisas|quais itens)",
      "(o que|que) (esta|ainda esta|ta) faltando [comprar|comprarmos] [no mercado]",
      "(o que|que) (e para|tem para|precisa|e que falta) comprar", "<readverb> comigo <whose> lista <listname>",
      "<readverb> [o que tem|os itens|tudo que tem|tudo o que esta|o que esta|o conteudo] [<whose>|<ofwhose>] lista " +
        "<listname> [para mim|em voz alta]",
      "<readverb> <whose> lista [para mim|em voz alta]",
      "(o que|que) (eu|a gente|nos|) [ainda] (preciso|precisa|precisamos|tenho que|tenho de|temos que|devo|falta|tem que) " +
        "comprar [no mercado|no supermercado|na feira|hoje]",
      "(o que|que) (preciso|precisamos|tenho que|falta|temos que|devo|tem que) comprar [no mercado|no supermercado|hoje]",
      "(tem|ha|existe) (algo|alguma coisa|alguma) <ofwhose> lista <listname>",
      "(quantos|quantas) (itens|coisas) (tem|ha|tenho|estao) <ofwhose> lista <listname>",
      "(como esta|como ficou|qual e|qual) <whose> lista <listname>", "(o|a) {few:text} (esta|ta) <ofwhose> lista <listname>",
      "tem {few:text} <ofwhose> lista <listname>",
      "[minha|nossa|a minha|a nossa] lista (de|da|do|das|dos|para|para o|para a) {word:list}",
      "voce (le|mostra|confere|abre) <whose> lista <listname> ?",
      "[eu|a gente] [ja] (coloquei|botei|pus|adicionei|colocou|botou|pos) {few:text} <onto> [minha|nossa] lista <listname> ?", "o que [e que] (eu|a gente) (tinha que|tinha de|precisava|queria|era para) comprar [mesmo]", "o que (falta comprar|tem para comprar|a gente tem que comprar)",
      "(tem|ha|existe|falta) (algo|alguma coisa|mais alguma coisa) <ofwhose> lista <listname>",
      "(quero|queria|gostaria de) (ver|ouvir|ler) <whose> lista <listname>",
      "(o que|que) [e que] (eu|a gente|nos|voce) [ja] (coloquei|colocou|colocamos|botei|botou|botamos|pus|pos) (<onto> [minha|nossa]|<ofwhose>) lista <listname>",
      "que (itens|coisas) estao <ofwhose> lista <listname>",
    ],
  ],
  [
    "note",
    [
      "[uma] (nota|anotacao) (rapida|rapidinha|nova) , {text}", "(escreve|escreva|anota|anote|registra|registre) [para mim|aqui] , {text}",
      "(anota|anote|escreve|escreva|registra|registre|guarda|guarde|toma nota|tome nota) (uma coisa|isso|isto|o seguinte|de uma coisa|disso) " +
        "[ai|para mim|aqui] : {text}",
      "(anota|anote|anotar|toma nota|tome nota|tomar nota|escreve|escreva|registra|registre|registrar|faz uma nota|faca " +
        "uma nota|faz uma anotacao|faca uma anotacao|cria uma nota|crie uma nota|cria uma anotacao|crie uma anotacao|criar " +
        "uma nota|nova nota|nova anotacao|nota|guarda|guarde|adiciona uma nota|adicione uma nota|salva uma nota|salve uma " +
        "nota|anota ai|anote ai|escreve ai|deixa anotado|deixe anotado|deixa registrado|anota para mim|anote para mim|anotar " +
        "para mim|escreve para mim|registra para mim|toma nota para mim|toma nota ai|escreve uma nota|escreva uma nota|grava " +
        "uma nota|grave uma nota|fazer uma nota|lembre se|salva|salve) (que|dizendo|dizendo que|de que|falando que|com o " +
        "texto|sobre|para dizer que|assim) {text}",
      "(anota|faz|cria|escreve|registra|grava|salva|adiciona|toma|tome|guarda|deixa|bota|poe|coloca|fazer) [ai|me|para mim|aqui] [uma|" +
        "essa|esta|a seguinte|mais uma|outra] [nova|pequena] (nota|anotacao|" +
        "observacao) [nova|rapida|ai|para mim] [que|dizendo|dizendo que|de que|sobre|assim|com] {text}",
      "(anota|anote|anotar|toma nota|tome nota|anota ai|anote ai|faz uma nota|faca uma nota|faz uma anotacao|faca uma " +
        "anotacao|cria uma nota|crie uma nota|nova nota|nova anotacao|toma nota ai|escreve ai|anota isso|anote isso|anota " +
        "isso ai|escreve uma nota|escreva uma nota|deixa anotado|registra ai|escreve isso|registre isso|anota para mim) " +
        "{text}",
      "(adiciona|adicione|coloca|coloque|bota|bote|poe|ponha|escreve|escreva|salva|salve|guarda|guarde|inclui|inclua) " +
        "{text} (nas|em|as|nas minhas|em minhas|as minhas) (notas|anotacoes)",
      "(adiciona|adicione|coloca|coloque|escreve|escreva|poe|ponha|bota|bote|salva|salve|guarda|guarde|registra|registre) [ai] (nas|em) [minhas] (notas|anotacoes) [que] {text}",
      "nas minhas (notas|anotacoes) (escreve|escreva|coloca|coloque|anota) [que] {text}", "nao (esquece|esqueca) que {text}",
      "(guarda|guarde|grava|grave|registra|registre|salva|salve|anota|anote) (essa|esta|a seguinte|essa aqui) (informacao|" +
        "nota|anotacao|observacao|frase|ideia) [que|ai|:] {text}",
      "(guarda|guarde|grava|grave|registra|salva|anota|anote) (isso|isto|o seguinte) (que|:) {text}",
      "(nota|anotacao|lembrete para mim|recado) : {text}",
      "(bota|coloca|poe|deixa) (no papel|por escrito|anotado|registrado) [ai] [que] {text}",
      "(quero|queria|gostaria de|preciso) (anotar|registrar|guardar) [que|o seguinte] {text}",
      "(fica|deixa|deixe) (anotado|registrado) que {text}", "(vai|pode) (anotando|anotar) [ai] [que] {text}",
      "(lembra|lembre|guarda|nao esquece) [ai] que {text}", "lembre que {text}", "lembre se [de] que {text}",
    ],
  ],
];
