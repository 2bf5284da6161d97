// The phrases by which Portuguese asks for notes, sound, media and the desktop.

import type { Request } from "./meanings.ts";

export const portugueseDoings: readonly Request[] = [
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
  [
    "setVolume",
    [
      "(<set>|muda|mude|altera|altere|passa|regula|regule|deixa) [<the>] <volume> [la] (em|para|a|no|ate|nos) [o] {number} [<percent>]",
      "<volume> [em|a|no|para|nos] {number} [<percent>]", "[o] <volume> (em|a|para) {number} [<percent>]",
      "(<up>|<down>) para {number} <percent>", "{number} <percent> de volume",
      "(<up>|<down>) [<the>] <volume> (para|ate|a) {number} [<percent>]", "<set> {number} <percent> de volume",
    ],
  ],
  [
    "loudest",
    [
      "(<set>|<up>) [<the>] <volume> (no|ao|para o|ate o|todo) [maximo|talo|ultimo|topo]", "<volume> (no|ao|todo) [maximo|talo]",
      "volume (maximo|total)", "(<up>|<set>) [<the>] <volume> (todo|tudo|no talo)", "(<up>|<set>) tudo [<the>] <volume>",
      "(<up>) [<the>] <volume> ao maximo",
    ],
  ],
  [
    "half",
    [
      "(<set>|<up>|<down>) [<the>] <volume> (pela|na|para a|ate a) metade", "<volume> (na|pela) metade", "meio volume",
      "metade do volume",
    ],
  ],
  [
    "muteSound",
    [
      "(muta|mute|silencia|silencie|corta|corte|emudece|emudeca|tira|tire|desliga|desligue|desativa|desative|mutar|silenciar|" +
        "desligar|zera|zere) [<the>] (volume|som|audio|som do computador|som do sistema|som do pc|volume do som|volume do computador|" +
        "alto falante)",
      "(tira|tire|coloca|coloque|deixa|deixe|poe|ponha) [<the>] [som|volume|computador|audio] (no mudo|mudo|sem som|em mudo)",
      "(muta|silencia|mute|silencie) o (computador|sistema|pc|notebook)", "sem som", "desliga o som",
    ],
  ],
  [
    "unmuteSound",
    [
      "(desmuta|desmute|reativa|reative|religa|religue|ativa|ative|liga|ligue|devolve|volta|ligar|desmutar|retorna) [<the>] " +
        "(<volume>|computador) [de volta|de novo]",
      "(tira|tire) [<the>] (som|volume|computador|audio) do mudo", "tira do mudo", "(volta|liga) com o som", "desmuta", "desmutar",
    ],
  ],
  [
    "voiceLouder",
    [
      "(fala|fale|falar) [<bit>] mais alto",
      "<up> [<bit>] (sua|a sua|a tua|o volume da sua|tua|seu|o seu) (voz|volume) [<bit>] [em {number} [<percent>]]",
      "nao (estou|consigo) te (ouvindo|ouvir|escutar)", "(voce esta|voce fala) [muito] baixo [demais]", "[<bit>] mais alto a sua voz",
      "fala alto",
    ],
  ],
  [
    "voiceQuieter",
    [
      "(fala|fale|falar) [<bit>] (mais baixo|baixinho|baixo|mais baixinho)",
      "<down> [<bit>] (sua|a sua|a tua|o volume da sua|tua|seu|o seu) (voz|volume) [<bit>] [em {number} [<percent>]]",
      "(voce esta|voce fala|voce esta falando) [muito] alto [demais]", "(fala|fale) menos alto",
    ],
  ],
  [
    "louder",
    [
      "<up> [<bit>] [<the>] <volume> [<bit>] [em {number} [<percent>|pontos]]", "<up> [<the>] <volume> <bit>",
      "(<up>) [<bit>] [em {number} <percent>]", "[<bit>] mais alto",
      "(deixa|deixe|coloca|coloque|poe|bota|faz|toca|toque) [<the>] [<volume>|isso] [<bit>] mais alto",
      "(esta|isso esta|o som esta|o volume esta|a musica esta) [muito|baixo demais|tao|bem] baixo [demais]", "mais volume", "mais som",
      "nao (estou|consigo) (ouvindo|ouvir|escutar|escutando) [nada|direito|a musica|o som]", "{number} <percent> mais alto",
      "volume mais alto",
    ],
  ],
  [
    "quieter",
    [
      "<down> [<bit>] [<the>] <volume> [<bit>] [em {number} [<percent>|pontos]]", "<down> [<the>] <volume> <bit>",
      "<down> [<bit>] [em {number} <percent>]", "[<bit>] mais baixo",
      "(deixa|deixe|coloca|coloque|poe|bota|faz|toca|toque) [<the>] [<volume>|isso] [<bit>] mais baixo",
      "(esta|isso esta|o som esta|o volume esta|a musica esta) [muito|alto demais|tao|bem] alto [demais]", "menos volume", "menos som",
      "{number} <percent> mais baixo", "volume mais baixo",
    ],
  ],
  [
    "tellVolume",
    [
      "(qual|qual e|como esta|quanto esta|em quanto esta|quanto e|a quanto esta|quao alto esta) [<the>] [nivel do|nivel de] (volume|" +
        "som|volume do som|volume do sistema|volume do computador|volume atual) [atual]",
      "o volume esta em quanto", "em que volume esta", "<readverb> [<the>] volume", "(qual|quanto) [e] o volume [atual|do sistema]",
    ],
  ],
  [
    "setVoice",
    [
      "(<set>|<up>|<down>|muda|mude) [<the>] [sua|tua|a sua|o volume da sua|volume da sua|o seu|seu] (voz|volume de voz|volume da " +
        "fala) (em|para|a|ate) {number} [<percent>]",
      "(<set>|muda|mude) (o|) seu volume (em|para|a) {number} [<percent>]",
      "(fala|fale) [com|em|a] {number} <percent> [de volume|do volume]", "sua voz (em|a|para) {number} <percent>",
    ],
  ],
  [
    "next",
    [
      "proxima",
      "(toca|toque|tocar|passa|passe|passar|vai|va|pula|pule|pular|avanca|avance|avancar|coloca|coloque|poe|bota) [para] [a|o|de|" +
        "essa|esta] (proxima|proximo|seguinte) [<music>|uma]",
      "(toca|toque|tocar|passa|passe|vai para|pula para|coloca|poe|bota) [a|o] <music> seguinte", "(proxima|proximo) <music>",
      "(pula|pule|pular|passa|passe|troca|troque|muda|mude) [de|essa|esta|a|para a] <music>", "(pula|pule|passa) [essa|esta|isso]",
      "[a] proxima faixa", "(toca|toque|coloca|coloque) (outra|uma outra) <music>", "nao gosto dessa musica",
    ],
  ],
  [
    "previous",
    [
      "(volta|volte|voltar|toca|toque|tocar|vai|va|retorna|retorne|coloca|coloque|poe|bota|repete|repita) [para] [a|o|uma|aquela] " +
        "[ultima] (<music> anterior|anterior|<music> passada|ultima <music>)",
      "<music> anterior", "(volta|volte|voltar) (uma|1|a|para a ultima) <music>",
    ],
  ],
  [
    "tellPlaying",
    [
      "(o que|que) (esta tocando|toca|ta tocando|esta passando|estou ouvindo|estamos ouvindo|e que esta tocando) [agora]",
      "(que|qual) (musica|cancao|faixa|som|banda|album) (e essa|e esta|esta tocando|e|toca|estou ouvindo|ta tocando|estamos ouvindo) " +
        "[agora|tocando|essa|esta]",
      "qual [e] [o] (nome|titulo) (dessa|desta|da) (musica|cancao|faixa) [que esta tocando]",
      "quem (canta|esta cantando|toca|e que canta|esta tocando|canta isso|e) [essa|esta|isso] [musica|cancao|cantor]",
      "(como se chama|como e o nome de|como e o nome dessa|que nome tem) (essa|esta|a|musica) [musica|cancao]",
      "de quem e (essa|esta) (musica|cancao)", "qual [e] a musica [atual|que esta tocando|de agora]",
      "(tem|esta) (alguma coisa|algo|alguma musica|musica) tocando", "quem e o (cantor|artista)", "que som e esse",
    ],
  ],
  [
    "pause",
    [
      "(pausa|pause|pausar|para|pare|parar|interrompe|interrompa|segura|desliga|desligue|congela) [<the>|de tocar <the>] <music>",
      "(pausa|pause|pausar) [isso|ai|tudo]", "(para|pare) de tocar [musica|a musica|isso]",
      "(da|de|dar) (pausa|um pause|pause|uma pausa) [na <music>|no <music>|nisso]", "aperta (o pause|pausa)",
      "(coloca|poe|bota|coloque) (em|na|no|a <music> em) pausa",
    ],
  ],
  [
    "play",
    [
      "(toca|toque|tocar|continua|continue|continuar|retoma|retome|retomar|volta a tocar|volte a tocar|despausa|despause|da play na|" +
        "de play na|solta|solte|liga|ligue|recomeca|reproduz|reproduza|voltar a tocar|continua tocando|continue tocando) [<the>|uma] " +
        "<music> [de novo|novamente|outra vez|ai]",
      "(toca|toque|play|despausa|despause|reproduzir)", "(da|de|dar|aperta|aperta o) (um play|play|o play) [ai]",
      "(continua|continue|volta a|volte a) (tocando|tocar|a tocar|a reproducao)", "(retoma|retome) [a reproducao]",
      "(coloca|coloque|bota|poe) [<the>|uma] musica [para tocar|ai]", "(toca|toque) (alguma coisa|algo|isso)",
      "(retoma|retome|continua|continue) [<the>] <music>",
    ],
  ],
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
