// What Portuguese words stand for in the second reading of a sentence. A verb stands for all forms by which somebody is asked.

import type { Lexicon } from "./concepts.ts";

export const portugueseConcepts: Lexicon = {
  /** These change nothing. */
  light: "totalmente|completamente|de vez|de uma vez|o|a|os|as|um|uma|meu|minha|meus|minhas|nosso|nossa|esse|essa|este|esses|essas|" +
    "desse|dessa|deste|desta|nesse|nessa|neste|nesta|isso|de|do|da|dos|das|no|na|nos|nas|em|por|para|com|ao|" +
    "a gente|por favor|agora|ja|me|para mim|aqui|ai|la|so|entao|tambem|de novo|novamente|outra vez|rapidinho|hoje|atual|favor|logo|" +
    "agora mesmo|neste momento|no momento|mesmo|pelo|pela|hein",
  /** Nor do these in a question. */
  asking: "quase|bonita|linda|boa|legal|bacana|massa|bonito|e|esta|estao|tem|tenho|temos|ha|existe|existem|eu|voce|nos|algum|alguma|alguns|" +
    "algumas|o que|que|qual|quais|quanto|quanta|quantos|quantas|quando|como|ainda|quero ver|quero ouvir|" +
    "ver|ouvir|saber|diz|fala|conta|mostra|sao|fica|ficou|vai|vou|estou|estamos|anda|e que|sera que|sabe|quero saber|ter|sera|ser|deixa " +
    "eu ver|marcado|ate|para|ao todo|mais|alguma coisa",
  /** It asks for something else. */
  definition: "que horas sao|que horas e|o que e um|o que e uma|para que serve|como faco|como eu faco|como se|como que eu",
  ask: "o que|que|qual|quais|quantos|quantas|quanto|quando|como esta|como anda|como vai|cade",
  /** It asks for a time. */
  clock: "a que horas|que horas|para que horas|em que hora",
  when: "quando",
  must: "preciso|eu preciso|tenho que|eu tenho que|quero|eu quero|vou ter que|preciso estar|tenho de",
  inverted: "tem|tenho|temos|ha|esta|estao|estou|estamos|existe|existem|eu tenho|ainda tem|ainda tenho|sera que tem|eu estou|a gente tem",
  list: "da uma lida|dar uma lida|da uma olhada|da uma passada|listar|lista|mostra|me mostra|le|diz|fala|me fala|me diz|conta|me conta|confere|verifica|checa|exibe|ve|deixa eu ver|deixa eu " +
    "ouvir|quero ver|quero ouvir|repassa|quero saber|me passa|me da|abre",
  article: "o|a|os|as|meu|minha|um|uma",
  names: "do|da|de|dos|das|para|para o|para a|no|na|chamado|chamada|com nome de|para os|para as",
  timer: "timer|temporizador|cronometro|contagem|contagem regressiva|contador|timers|temporizadores|cronometros|contagens|tempo",
  timers: "timers|temporizadores|cronometros|timer|contagens|temporizador",
  alarm: "alarme|despertador|alarmes|despertadores|alarme do despertador",
  alarms: "alarmes|despertadores|alarme",
  reminder: "lembrete|lembretes|aviso|avisos",
  reminders: "lembretes|avisos|lembrete",
  notes: "notas|anotacoes|ultima nota|ultima anotacao|bloco de notas|caderno",
  noted: "anotado|escrito|guardado|anotada|anotadas|salvo|salvas|feito|guardadas|feitas",
  all: "tudo que e|tudo o que e|todos|todas|tudo|todos os|todas as|os dois|as duas|ambos|cada um|todo|todos eles|qualquer",
  running: "eu deixei|deixei|que deixei|ativo|ativos|rodando|correndo|ligado|ligados|marcado|marcados|programado|programados|em andamento|funcionando|contando|que " +
    "esta rodando|que estao rodando|que esta ligado|que estao ligados|que estiverem rodando|que estiver rodando|que estiverem ligados|" +
    "que esta correndo|que estao correndo|que eu marquei|que marquei|que eu coloquei|que coloquei|que eu tenho|que tenho|que eu pus|que " +
    "eu botei|que esta ativo|que estao ativos|que eu criei|que esta marcado|que estao marcados|que tiver|que houver|" +
    "que pedi|que eu pedi|que programei|que esta contando|que existe|que existem|que tem|agendado|agendados|pendente|pendentes|no ar|em " +
    "curso|aberto|abertos|eu tenho|configurado|configurados",
  pending: "marcada|marcadas|agendada|programada|combinado|pendente|esta pendente|que esta pendente|pendentes|agendado|agendados|programado|programados|proximos|por vir|vindo|a " +
    "caminho|marcado|marcados|para hoje|para amanha",
  goes: "toca|vai tocar|acaba|vai acabar|termina|vai terminar|tocar|acabar|terminar|acabou|terminou|apita|desperta|vai despertar|" +
    "disparar|dispara|vai disparar|acabando|terminando",
  off: "cancela|apaga|remove|exclui|deleta|desliga|desativa|tira|encerra|interrompe|elimina|silencia|esquece|anula|desmarca|limpa|" +
    "descarta|termina|mata|derruba|zera|corta|acaba com|para|pare|parar|para com|" +
    "pode parar|da fim|da um fim|joga fora|dispensa|nao quero mais|nao preciso mais|nao precisa mais|some com|para de tocar|dispense|" +
    "suspende|suspenda|mate|corte|desarma|desarme|cala|larga|retira|remova",
  set: "pronto|preparado|deixa pronto|coloca|bota|poe|cria|faz|inicia|comeca|programa|marca|marque|ativa|liga|define|defina|ajusta|configura|aciona|quero|preciso|" +
    "queria|da|dispara|abre|adiciona|agenda|arma|roda|manda|solta|deixa|arruma|ve|" +
    "novo|nova|outro|outra|mais um|mais uma|gostaria|ponha|me ve|me arruma|me arranja|arranja|monta|prepara|registra|precisava|mete|" +
    "soltar|rola|deixar|joga|taca|pede|mais|preciso que|vou querer|vou precisar",
  alerts: "avisa|me avisa|me chama|me alerta|apita|toca|me notifica|me da um toque|me da um aviso|me da um grito|me da um alo|me fala|" +
    "me diz|conta|cronometra|marca|marque|me lembra|me sinaliza|bipa|me bipa|me cutuca|" +
    "para tocar|que toque|para apitar|que apite|da um sinal|da um toque|da um aviso|da um bipe|me manda um aviso|me da um sinal|me da " +
    "um berro|grita|me grita|sinaliza|me da um salve",
  after: "em|daqui a|daqui|depois de|dentro de|apos|quando|passar|passarem|der|derem|acabar|acabarem|completar|terminar|terminarem|" +
    "passado|a partir de agora|tiver passado|tiverem passado|uns|umas|cerca de|fechar|fecharem|" +
    "dar|contados|contando|regressivos|no relogio|de tempo|se passarem|bater|baterem|correr",
  wake: "me acorda|acorda|me desperta|desperta|me levanta|me tira da cama|me chama|acordar|me acordar|levantar|despertar|que me acorde|" +
    "para me acordar|nos acorda|acorda a gente|me acordasse|me arranca da cama|" +
    "que me desperte|para me despertar|que me acorda|estar de pe|ficar de pe|estar acordado|estar acordada|me levantar|me poe de pe|me " +
    "bota de pe|me tira do sono|me faz acordar|me ajuda a acordar|pular da cama|sair da cama",
  early: "cedo|cedinho|bem cedo|em ponto|sem falta",
  snooze: "soneca|sonequinha|adia|adiar|me acorda de novo|posterga|prorroga|empurra o alarme|atrasa o alarme|funcao soneca|" +
    "modo soneca|botao de soneca|botao soneca|botao da soneca",
  sleep: "deixa eu dormir|me deixa dormir|deixa eu ficar na cama|me deixa ficar na cama|me deixa cochilar|deixa eu cochilar",
  more: "mais|mais um pouco|mais um pouquinho|mais um tempo|mais um tempinho|um pouco mais|um pouquinho mais|outros|outras|um pouco|so " +
    "mais|a mais|ativa|aperta|poe|bota|coloca|da|faz|aciona",
  sound: "som|audio|volume|alto falante|alto falantes|caixa de som|caixas de som|caixinha|som do computador|som do pc|barulho|caixas|" +
    "som do sistema|sons",
  volume: "volume|volume do som|volume do sistema|nivel do volume|nivel do som|volume do computador|altura do som|altura do volume",
  computer: "computador|pc|notebook|laptop|maquina|sistema|note|desktop|micro|aparelho",
  it: "isso|isto|ele|ela|esse negocio|essa coisa",
  everything: "tudo|geral",
  mute: "muta|mudo|no mudo|em mudo|modo mudo|modo silencioso|no silencioso|silencioso|mutado|sem som",
  silent: "silencia|cala|emudece|silencio|em silencio|calado|quieto|silenciado|quietinho",
  cutoff: "desliga|tira|corta|sem|desativa|zera|elimina|mata|acaba com|suspende|interrompe|remove|para com|pare com|pausar",
  unmute: "desmuta|tira do mudo|sai do mudo|do mudo|do silencioso|dessilencia|do modo silencioso|do modo mudo",
  out: "tira|sai|saia|remove|desliga|desativa|cancela|encerra",
  on: "liga|ativa|reativa|religa|religar|habilita|reabilita|reabilite|habilite|ligado|de volta",
  back: "volta|devolve|de volta|retorna|traz de volta|traz|volta com|restaura|restaure|restaurar|retoma|me devolve|quero de volta|" +
    "voltar com|recupera|recupere",
  change: "coloca|bota|poe|deixa|muda|ajusta|altera|faz|quero|queria|gostaria|preciso|passa|regula|fica|da|toca|ponha|sete|seta|mete|da " +
    "para|manda|ficar|configura|define|defina|leva|leve|pode ficar|bora|fixa|fixe|vamos de|crava",
  turn: "gira",
  bit: "um pouco|um pouquinho|um bocado|um bocadinho|um tantinho|um tiquinho|bem|muito|mais um pouco|um pouco mais|mais um pouquinho|so " +
    "um pouco|so um pouquinho|bastante|levemente|um tanto|um cadinho|mais|bem mais|um tico|" +
    "um nivel|um ponto|um degrau|uns niveis|um bom tanto|ligeiramente|mais um tantinho|so um tiquinho|uma coisinha|consideravelmente|um " +
    "tiquinho mais|um grau|de leve|uma pitada",
  percent: "por cento|%|porcento|pontos|pontos percentuais",
  up: "para cima",
  louder: "aumenta|sobe|levanta|eleva|mais alto|alto|mais forte|da uma aumentada|da uma subida|mais volume|mais som|mais altinho|uma " +
    "aumentada|da um gas|altinho|em voz alta|mais alta|alta|da uma levantada|subida|aumentada|" +
    "aumentadinha|da uma aumentadinha|da uma subidinha|mais audivel|da um up|mais potente|intensifica|amplia",
  down: "para baixo",
  quieter: "abaixa|diminui|baixa|reduz|desce|mais baixo|baixo|baixinho|mais baixinho|da uma abaixada|da uma baixada|da uma diminuida|" +
    "menos volume|menos som|menos barulho|menos alto|em voz baixa|sussurra|sussurrando|" +
    "cochicha|cochichando|mansinho|mais baixa|baixa|menos|da uma reduzida|da uma abaixadinha|abaixada|diminuida|abaixadinha|baixada|" +
    "baixadinha|da uma baixadinha|mais suave|suave|mais manso|mais quieto|suaviza|suavize|maneira no|" +
    "da uma maneirada|com a voz baixa|mais de leve|baixar|menos alta|mais silencioso|mais discreto|murmura",
  voice: "sua voz|a sua voz|tua voz|a tua voz|voz|seu volume|o seu volume|a voz|volume da sua voz|voce|o volume da sua voz|o volume da " +
    "tua voz|volume da voz|o seu tom|seu tom|tom de voz|o tom de voz|sua fala|a sua fala",
  speak: "fala|falar|conversa comigo|responde|fale|responda|fala comigo|fala as coisas|diz isso|falando|conversa",
  most: "no maximo|ao maximo|o maximo|maximo|no talo|no ultimo|ate o maximo|para o maximo|ate o talo|no ultimo volume|todo|tudo|o mais " +
    "alto possivel|mais alto possivel|ate o fim|ate o topo|com tudo|no cem|total|o mais alto que der|ao talo|" +
    "volume maximo|no topo|o quanto der|ate o limite|no limite|na maxima",
  least: "no minimo|ao minimo|o minimo|minimo|para o minimo|ate o minimo|no zero|a zero|para zero|ate zero|o mais baixo possivel|mais baixo possivel",
  half: "metade|pela metade|na metade|meio|no meio|medio|a metade|para a metade|ate a metade|em metade",
  loud: "alto|nivel|altura|quao alto|a quanto|em quanto|em que nivel|em que|quantos por cento|por cento|ajustado",
  next: "proxima|proximo|seguinte|outra|outro|diferente|da frente|adiante|que vem",
  skip: "pula|avanca|pula essa|pula isso|avanca essa|pular essa|passa essa|troca essa|pular",
  previous: "anterior|passada|passado|de antes|ultima|que passou|para tras|que tocou antes|volta|retrocede|retroceda|retroceder|de tras|" +
    "que acabou de tocar|que estava tocando antes|que estava antes",
  song: "esta musica|esta faixa|esta cancao|musica|faixa|cancao|video|episodio|musicas|hit|album|disco|faixas",
  music: "esta musica|esta faixa|esta cancao|musica|faixa|cancao|video|player|reproducao|filme|podcast|audio|tocador|playlist|album|" +
    "midia|serie|musicas|radio|musiquinha|som|cancoes|sonzinho|trilha|show|sonzeira",
  pause: "pausa|para|pare|parar|interrompe|segura|desliga|congela|suspende|trava|corta|para de tocar|pare de tocar|da pausa|da um pause|" +
    "da uma pausa|da um stop|em pausa|na pausa|para com|pare com|da um tempo|freia|cala|pausada|" +
    "em pausa|poe em pausa|coloca em pausa|bota em pausa|deixa em pausa|deixar em pausa|estanca|da pause",
  pausing: "pausa|pausar|da pausa|da um pause|da uma pausa|aperta o pause|poe em pausa|coloca em pausa|bota em pausa|deixa em pausa|da " +
    "pause|para de tocar",
  awhile: "um segundo|um momento|um instante|um minuto|um minutinho|um segundinho|por enquanto|um pouco|um pouquinho|rapidinho|por um " +
    "momento|por um instante|por um tempo|um tempinho|um tempo",
  play: "toca|continua|retoma|despausa|solta|reproduz|recomeca|da play|da um play|segue|prossegue|volta a tocar|volta com|bota|poe|" +
    "coloca|quero ouvir|quero escutar|liga|bota para tocar|poe para tocar|coloca para tocar|para tocar|" +
    "roda|manda|aperta o play|da o play|continua tocando|tira da pausa|volta|voltar|da continuidade|inicia|comeca|prossiga|prosseguir|" +
    "rola|dar play|ouvir|tocando|volta para|continua com|segue com|da play na|da play no",
  again: "de novo|novamente|outra vez|de onde parou|de onde parei|de onde paramos|onde parou|onde parei|onde paramos|mais uma vez",
  some: "alguma|um|uma|algumas|umas|qualquer",
  lock: "bloqueia|tranca|trava|bloqueado|bloqueada|trancado|trancada|protege|fecha com senha|bloqueio|travado|travada|proteja|proteger|" +
    "travamento",
  screen: "esta tela|esta janela|esta pagina|tela|sessao|area de trabalho|monitor|ecra|telinha|pagina|janela",
  shot: "print|screenshot|captura de tela|captura da tela|print da tela|print screen|printscreen|foto da tela|imagem da tela|print de " +
    "tela|printa|prints|fotografia da tela|screen shot|copia da tela|captura|instantaneo da tela|retrato da tela|" +
    "tirada de tela|printzinho",
  take: "tira|faz|captura|bate|pega|da|salva|registra|fotografa|quero|preciso|queria|gostaria|me arruma|me ve|guarda|faca|clica",
  picture: "foto|imagem|fotografia|captura|copia|registro|retrato|instantaneo|fotinho",
  whole: "inteira|toda|completa|disso|daqui|tudo|do que esta|aparecendo|aberta|aberto|aqui|do jeito que esta|atual|minha|desta|como " +
    "esta|agora",
  howlong: "quanto tempo|quanto|quantos minutos|quantos segundos|quantas horas|falta muito|quanto mais|quanto mais tempo|ainda falta " +
    "muito|falta quanto|em quanto tempo|vai demorar muito",
  left: "falta|faltam|resta|restam|restante|sobra|sobram|faltando|restando|ainda tem|ainda tenho|falta muito|falta quanto|ainda falta " +
    "muito|vai demorar muito|demora",
  last: "ultima|ultimas|recente|recentes",
  which: "que|qual|quem|quais|o que|de quem|nome|titulo|como se chama|como chama|quem e|identifica|identifique|qual e|o nome",
  playing: "tocando|estou ouvindo|estamos ouvindo|estou escutando|estamos escutando|ouvindo|escutando|rolando|que esta tocando|esta " +
    "passando|passando|toca agora|a tocar|rolando",
  sings: "canta|cantando|cantor|cantora|banda|artista|interprete|que canta|quem canta",
  author: "e essa|essa|e esse|e|esta|compositor|fez|gravou|compos|escreveu|ta|autor",
  called: "nome|chama|titulo|se chama|chamada",
  quantity: "quanto|quanta|nivel|porcentagem|percentual|carga|estado|status|quantos|acabando|no fim|baixa|fraca|cheia|por cento|uso|" +
    "muito|muita|bastante|suficiente|dura|aguenta|descarregando|vazia|duracao|consumo|quantidade|" +
    "morrendo|vai durar|durar|aguentar|como esta|como anda|como vai|a quantas anda|quantos por cento|quantos gigas|gigas|gb|para quanto|" +
    "pouca|pouco|tamanho|total|capacidade|em quanto|acabou",
  battery: "bateria|carga da bateria|nivel da bateria|nivel de bateria|carga|baterias|pilha",
  charging: "carregando|na tomada|plugado|plugada|ligado na tomada|conectado na tomada|carregado|carregada|na energia|no carregador|no " +
    "cabo|na bateria|usando a bateria|precisando carregar|precisa carregar|precisa de carga|precisa ser carregado|" +
    "ligado na energia|pela bateria",
  disk: "disco|hd|ssd|armazenamento|disco rigido|disco duro|hard disk",
  space: "espaco|espaco em disco|armazenamento|espaco no disco|memoria interna|lugar",
  full: "enchendo|encheu|cheio|quase cheio|lotado|ficando cheio|acabando|sem espaco|entupido|cheinho|estourando|no limite|vazio|cheia|lotada|acabou",
  free: "livre|livres|disponivel|disponiveis|sobrando|restante|restando|de sobra|vago|usado|usada|em uso|ocupado|ocupada|sendo usada|" +
    "sobra|sobrou|resta|restou|usando|gasta|consumida|sendo usado|usa|ocupando|folga|folgada|de folga|desocupado|" +
    "consumindo|utilizado|gastando|utilizada|cabe|comendo|sobraram|livre ainda",
  ram: "memoria|ram|memoria ram",
  network: "rede|wifi|wi fi|rede wifi|rede wi fi|rede sem fio|rede do wifi|conexao de rede|nome da rede|nome do wifi|ssid|wireless",
  internet: "internet|conexao|sinal|net|web|rede|wifi|wi fi|online|conexao com a internet|sinal de internet",
  connected: "conectado|conectada|conectados|usando|funcionando|ligado|ligada|online|no ar|caiu|caida|caido|fora do ar|offline|pegando|" +
    "ok|estou|estamos|tem|tenho|acesso|ativa|logado|plugado|conectei|normal|boa",
  reckon: "quanto|quantos|quantas|converte|transforma|passa|calcula|o que|da quanto|qual|me diz|traduz|muda|mude|converta|troca",
  conversion: "em|para|e|sao|da|dao|equivale|equivalem|tem|fica|ficam|vale|valem|cabem|isso|que|ha|seria|seriam|corresponde|" +
    "correspondem|convertido|convertidos|a|igual|faz|fazem|vira|se|eu|existem|la",
};
