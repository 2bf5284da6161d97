// The phrases by which Portuguese asks for sound and media.

import type { Request } from "./meanings.ts";

export const portugueseSound: readonly Request[] = [
  [
    "setVolume",
    [
      "(<set>|muda|mude|altera|altere|passa|regula|regule|deixa) [<the>] <volume> [la] (em|para|a|no|ate|nos) [o] {number} " +
        "[<percent>]",
      "<volume> [em|a|no|para|nos] {number} [<percent>]", "[o] <volume> (em|a|para) {number} [<percent>]",
      "(<up>|<down>) para {number} <percent>", "{number} <percent> de volume",
      "(quero|queria) [<the>] <volume> (em|a|no) {number} [<percent>]",
      "(bota|coloca|poe|deixa|deixe) [<the>] <volume> (para|em|ate|a|no) {number} [<percent>]",
      "<volume> (a|em|para|no) {number} [<percent>]", "(<up>|<down>) [<the>] <volume> (para|ate|a) {number} [<percent>]",
      "<set> {number} <percent> de volume",
    ],
  ],
  [
    "loudest",
    [
      "(<set>|<up>) [<the>] <volume> (no|ao|para o|ate o|todo) [maximo|talo|ultimo|topo]", "<volume> (no|ao|todo) [maximo|talo]",
      "(volume|som) (maximo|total|no talo|no ultimo|no maximo)",
      "(bota|coloca|poe|deixa) [<the>] (<volume>|tudo) (no|ao) (maximo|talo|ultimo|ultimo volume)",
      "(o mais alto|mais alto) (possivel|que der|que puder)", "(<up>|<set>) [<the>] <volume> (todo|tudo|no talo)",
      "(<up>|<set>) tudo [<the>] <volume>", "(<up>) [<the>] <volume> ao maximo",
    ],
  ],
  [
    "half",
    [
      "(<set>|<up>|<down>) [<the>] <volume> (pela|na|para a|ate a) metade", "<volume> (na|pela) metade", "(meio|medio) volume",
      "volume medio", "(bota|coloca|poe|deixa|quero) [<the>] <volume> (na|pela|no) (metade|meio|medio)", "metade do volume",
    ],
  ],
  [
    "muteSound",
    [
      "(muta|mute|silencia|silencie|corta|corte|emudece|emudeca|tira|tire|desliga|desligue|desativa|desative|mutar|" +
        "silenciar|desligar|zera|zere) [<the>] (volume|som|audio|som do computador|som do sistema|som do pc|volume do som|" +
        "volume do computador|alto falante)",
      "(tira|tire|coloca|coloque|deixa|deixe|poe|ponha) [<the>] [som|volume|computador|audio] (no mudo|mudo|sem som|em mudo)",
      "(muta|silencia|mute|silencie) o (computador|sistema|pc|notebook)", "sem som", "[no|modo] (mudo|silencioso)",
      "(bota|coloca|poe|deixa|deixe|coloque|fica) [tudo|isso|<the>] [<volume>|computador] (no|em|) (mudo|silencioso|" +
        "silencio|modo silencioso|zero)",
      "(silencia|silencie|muta|mute|cala) [tudo|isso|ai]", "volume (zero|no zero|em zero)", "(zera|zere) [o] (volume|som)",
      "(ativa|ative) o (mudo|modo silencioso)",
    ],
  ],
  [
    "unmuteSound",
    [
      "(desmuta|desmute|reativa|reative|religa|religue|ativa|ative|liga|ligue|devolve|volta|ligar|desmutar|retorna) " +
        "[<the>] (<volume>|computador) [de volta|de novo]",
      "(tira|tire) [<the>] (som|volume|computador|audio) do mudo", "tira do mudo",
      "(volta|liga|devolve|traz|quero) [com] [de volta] o (som|audio) [de volta|de novo]",
      "(sai|tira|saia) [o som|isso|o computador] do (mudo|silencioso|modo silencioso)",
      "(desativa|desliga|tira) o (mudo|modo silencioso)", "(volta|liga) com o som",
      "(volta|voltar|volte) [com] [<the>] (som|audio|volume)", "desmuta", "desmutar",
    ],
  ],
  [
    "voiceLouder",
    [
      "(fala|fale|falar) [<bit>] mais alto",
      "<up> [<bit>] (sua|a sua|a tua|o volume da sua|tua|seu|o seu) (voz|volume) [<bit>] [em {number} [<percent>]]",
      "nao (estou|consigo) te (ouvindo|ouvir|escutar)", "(voce esta|voce fala) [muito] baixo [demais]",
      "[<bit>] mais alto a sua voz", "(fala|fale) (alto|mais forte|para fora)",
      "[voce] (pode|precisa|tem que) falar [<bit>] mais alto",
      "(sua|a sua) voz (esta|e) [muito|bem] (baixa|fraca) [demais] [(aumenta|aumente|levanta) [ela] [um pouco]]",
      "(fala|fale) [<bit>] mais (alto|forte)", "(voce esta|esta) falando [muito|bem|tao] baixo [demais]",
      "nao (te ouco|te escuto|ouvi|escutei) [direito|bem]",
    ],
  ],
  [
    "voiceQuieter",
    [
      "(fala|fale|falar) [<bit>] (mais baixo|baixinho|baixo|mais baixinho)",
      "<down> [<bit>] (sua|a sua|a tua|o volume da sua|tua|seu|o seu) (voz|volume) [<bit>] [em {number} [<percent>]]",
      "(voce esta|voce fala|voce esta falando) [muito] alto [demais]", "(fala|fale) menos alto",
      "(sussurra|sussurre|cochicha|cochiche)",
      "(fala|fale) (sussurrando|cochichando|em voz baixa|com a voz baixa|baixinho|mansinho)",
      "(sua|a sua) voz (esta|e) [muito|bem] alta [demais] [(abaixa|abaixe|diminui|diminua) [ela] [um pouco]]",
      "(nao grita|nao grite|para de gritar|pare de gritar)",
      "<down> (a|sua|essa|tua) voz [<bit>]",
    ],
  ],
  [
    "louder",
    [
      "<up> [<bit>] [<the>] <volume> [<bit>] [em {number} [<percent>|pontos]]", "<up> [<bit>] (isso|ai|ele) [<bit>]",
      "(quero|queria|gostaria) [<the>] [<volume>] [<bit>] mais alto",
      "(da|de) uma (aumentada|subida) [<bit>] [no|na] [<volume>]", "<up> [<the>] <volume> <bit>",
      "(<up>) [<bit>] [em {number} <percent>]", "[<bit>] mais alto",
      "(deixa|deixe|coloca|coloque|poe|bota|faz|toca|toque) [<the>] [<volume>|isso] [<bit>] mais alto",
      "(esta|isso esta|o som esta|o volume esta|a musica esta) [muito|baixo demais|tao|bem] baixo [demais]", "mais volume",
      "mais som", "nao (estou|consigo) (ouvindo|ouvir|escutar|escutando) [nada|direito|a musica|o som]",
      "{number} <percent> mais alto", "volume mais alto",
    ],
  ],
  [
    "quieter",
    [
      "<down> [<bit>] [<the>] <volume> [<bit>] [em {number} [<percent>|pontos]]", "<down> [<bit>] (isso|ai|ele) [<bit>]",
      "(quero|queria|gostaria) [<the>] [<volume>] [<bit>] mais baixo",
      "(da|de) uma (abaixada|baixada|diminuida) [<bit>] [no|na] [<volume>]", "menos (barulho|alto)",
      "<down> [<the>] <volume> <bit>", "<down> [<bit>] [em {number} <percent>]", "[<bit>] mais baixo",
      "(deixa|deixe|coloca|coloque|poe|bota|faz|toca|toque) [<the>] [<volume>|isso] [<bit>] mais baixo",
      "(esta|isso esta|o som esta|o volume esta|a musica esta) [muito|alto demais|tao|bem] alto [demais]", "menos volume",
      "menos som", "{number} <percent> mais baixo", "volume mais baixo",
    ],
  ],
  [
    "tellVolume",
    [
      "(qual|qual e|como esta|quanto esta|em quanto esta|quanto e|a quanto esta|quao alto esta) [<the>] [nivel do|nivel " +
        "de] (volume|som|volume do som|volume do sistema|volume do computador|volume atual) [atual]",
      "(a quanto|em quanto|quanto|como) (anda|esta|vai) [<the>] (volume|som)", "[<the>] (volume|som) (esta|ta) (em|a) quanto",
      "o volume esta em quanto", "em que volume esta", "<readverb> [<the>] volume",
      "(qual|quanto) [e] o volume [atual|do sistema]",
    ],
  ],
  [
    "setVoice",
    [
      "(<set>|<up>|<down>|muda|mude) [<the>] [sua|tua|a sua|o volume da sua|volume da sua|o seu|seu] (voz|volume de voz|" +
        "volume da fala) (em|para|a|ate) {number} [<percent>]",
      "(<set>|muda|mude) (o|) seu volume (em|para|a) {number} [<percent>]",
      "(fala|fale) [com|em|a] {number} <percent> [de volume|do volume]", "sua voz (em|a|para) {number} <percent>",
    ],
  ],
  [
    "next",
    [
      "proxima", "(essa|esta|esse|este) nao [toca|poe|bota] [a] (proxima|outra)", "(pula|pule|pular|avanca|avance)", "outra <music>",
      "(vai|va|ir|passa|passe|pula|pule|avanca|avance|muda|mude) [la] (para|pra) [a|o] (proxima|proximo|seguinte|outra) " +
        "[<music>]",
      "(avanca|avance) [uma|1|essa|a] <music>", "(muda|mude|troca|troque) [de|a|essa|esta] (<music>|faixa)",
      "(bota|coloca|poe|quero|toca) (a|o|uma) (proxima|proximo|outra|seguinte) [<music>]",
      "nao (quero|curto|gosto de|gostei de|gostei dessa) [mais] [ouvir] [essa|esta|dessa|desta] <music>",
      "(toca|toque|tocar|passa|passe|passar|vai|va|pula|pule|pular|avanca|avance|avancar|coloca|coloque|poe|bota) [para] " +
        "[a|o|de|essa|esta] (proxima|proximo|seguinte) [<music>|uma]",
      "(toca|toque|tocar|passa|passe|vai para|pula para|coloca|poe|bota) [a|o] <music> seguinte", "(proxima|proximo) <music>",
      "(pula|pule|pular|passa|passe|troca|troque|muda|mude) [de|essa|esta|a|para a] <music>",
      "(pula|pule|passa) [essa|esta|isso]", "[a] proxima faixa", "(toca|toque|coloca|coloque) (outra|uma outra) <music>",
      "nao gosto dessa musica",
    ],
  ],
  [
    "previous",
    [
      "(volta|volte|voltar|toca|toque|tocar|vai|va|retorna|retorne|coloca|coloque|poe|bota|repete|repita) [para] [a|o|uma|" +
        "aquela] [ultima] (<music> anterior|anterior|<music> passada|ultima <music>)",
      "<music> anterior", "(a|o) (<music>|) (anterior|de antes|passada|passado)",
      "(volta|volte|voltar|retorna|retorne|recua) [uma|1|um|para] [a|o] (<music>|anterior|ultima|de antes)",
      "(toca|repete|bota|coloca|poe) [de novo] [a|o] (<music>|) (anterior|de antes|passada|que acabou de tocar)",
      "(bota|coloca|poe|quero) (a|o) anterior", "(volta|volte|voltar) (uma|1|a|para a ultima) <music>",
    ],
  ],
  [
    "tellPlaying",
    [
      "(o que|que) (esta tocando|toca|ta tocando|esta passando|estou ouvindo|estamos ouvindo|e que esta tocando) [agora]",
      "(que|qual) (musica|cancao|faixa|som|banda|album) (e essa|e esta|esta tocando|e|toca|estou ouvindo|ta tocando|" +
        "estamos ouvindo) [agora|tocando|essa|esta]",
      "qual [e] [o] (nome|titulo) (dessa|desta|da) (musica|cancao|faixa) [que esta tocando]",
      "quem (canta|esta cantando|toca|e que canta|esta tocando|canta isso|e) [essa|esta|isso] [musica|cancao|cantor]",
      "(como se chama|como e o nome de|como e o nome dessa|que nome tem) (essa|esta|a|musica) [musica|cancao]",
      "de quem e (essa|esta) (musica|cancao)", "qual [e] a musica [atual|que esta tocando|de agora]",
      "(tem|esta) (alguma coisa|algo|alguma musica|musica) tocando", "quem e o (cantor|artista)",
      "(que|qual) (musica|cancao|faixa|som|banda|cantor|cantora|artista) (e|esta|ta) (essa|esta|tocando|que esta tocando|" +
        "que ta tocando|isso|esse|passando) [agora|ai]",
      "(como|qual) [e que|e] (se chama|e o nome|chama) [de|da|dessa|desta] (essa|esta|a|) (musica|cancao|faixa)",
      "(o que|que) (e|seria) (isso|essa musica|esse som) [que] (esta tocando|ta tocando|tocando|toca)",
      "(nome|titulo) (dessa|desta|da) (musica|cancao)", "(voce|) (conhece|sabe) (essa|que) musica [e essa|e]",
      "de quem e (esse som|isso)", "(qual|que) [e] (a musica|o som)", "que som e esse",
    ],
  ],
  [
    "pause",
    [
      "(pausa|pause|pausar|para|pare|parar|interrompe|interrompa|segura|desliga|desligue|congela) [<the>|de tocar <the>] <music>",
      "(pausa|pause|pausar) [isso|ai|tudo]", "(para|pare) de tocar [musica|a musica|isso]",
      "(da|de|dar) (pausa|um pause|pause|uma pausa) [na <music>|no <music>|nisso]", "aperta (o pause|pausa)",
      "(segura|segure|congela|suspende|trava|da um tempo em|da um tempo n) [ai|<the>|essa|esse|a|o] <music>",
      "(da|de) (pausa|uma pausa|pause) [ai|nisso|nessa|na|nesse|no] [<music>]",
      "(pausa|pause|para|pare) (a|o|essa|esse) <music>", "(para|pare) com (a|essa) (musica|cancao)",
      "(coloca|poe|bota|coloque) (em|na|no|a <music> em) pausa",
    ],
  ],
  [
    "play",
    [
      "(toca|toque|tocar|continua|continue|continuar|retoma|retome|retomar|volta a tocar|volte a tocar|despausa|despause|" +
        "da play na|de play na|solta|solte|liga|ligue|recomeca|reproduz|reproduza|voltar a tocar|continua tocando|continue " +
        "tocando) [<the>|uma] <music> [de novo|novamente|outra vez|ai]",
      "(toca|toque|play|despausa|despause|reproduzir|tira da pausa|tira do pause|sai da pausa)",
      "(toca|toque|tocar|continua|volta a tocar) (de novo|novamente)", "(tira|tire) [<the>] [<music>] (da pausa|do pause)",
      "(segue|siga|volta|volte|solta|solte|manda|bota|coloca|poe) [com|<the>|ai] (o som|a musica|musica|o video|o filme) " +
        "[de novo|de volta|para tocar|ai|para rodar]",
      "(continua|continue|retoma|retome|segue|siga) (de onde parou|de onde paramos|tocando)",
      "(quero|queria) (ouvir|escutar) [uma|umas|a] (musica|musicas)", "(da|de|dar|aperta|aperta o) (um play|play|o play) [ai]",
      "(continua|continue|volta a|volte a) (tocando|tocar|a tocar|a reproducao)", "(retoma|retome) [a reproducao]",
      "(coloca|coloque|bota|poe) [<the>|uma] musica [para tocar|ai]", "(toca|toque) (alguma coisa|algo|isso)",
      "(retoma|retome|continua|continue) [<the>] <music>",
    ],
  ],
];
