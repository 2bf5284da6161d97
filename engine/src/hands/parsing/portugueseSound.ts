// The phrases by which Portuguese asks for sound and media.

import type { Request } from "./meanings.ts";

export const portugueseSound: readonly Request[] = [
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
];
