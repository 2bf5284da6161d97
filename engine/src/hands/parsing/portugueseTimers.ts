// The phrases by which Portuguese asks for timers, alarms and reminders.

import type { Request } from "./meanings.ts";

export const portugueseTimers: readonly Request[] = [
  [
    "setTimer",
    [
      "(coloca|poe|bota|conta|marca) [ai] {duration} [ai]", "<set> [<a>] <timer> [de|para] {duration} para (eu|a gente) {word:why}",
      "[<set>] [<a>] <timer> [de|para|com|em|por|durante|para daqui a|daqui a|para tocar em|que toque em|que dure|para " +
        "daqui] {duration} [<called> {few:name}]",
      "<set> {duration} (no|de) <timer> [<called> {few:name}]", "{duration} (no|de) <timer>",
      "<set> [<a>] <timer> <called> {few:name} (de|com|por|em|para) {duration}",
      "<set> [<a>] <timer> <called> {few:name} {duration}", "<timer> <called> {few:name} (de|com|por) {duration}",
      "[<a>] <timer> <called> {few:name} {duration}", "<timer> {word:name} [de|por|com] {duration}", "<timer> {duration} {word:name}",
      "<timer> (do|da|de|dos|das|para|para o|para a) {few:name} [de|por|com|sao|e|uns|de uns] {duration}",
      "(o|a|os|as) {few:name} (leva|levam|precisa de|precisam de|demora|demoram) {duration} (<set> [<a>] <timer>|marca|cronometra|conta) " +
        "[para mim|ai|o tempo|isso|esse tempo|para ele|para ela|para isso] [para mim]", "{duration} (valendo|ja valendo|comecando agora|a partir de agora)", "{duration} (para|para o|para a|no|na) {few:name} (vai|ja|valendo|a partir de agora|contando)",
      "[<set>] {duration} [de|no|em um|como] <timer> [<called> {few:name}]",
      "<set> [<a>] (tempo|tempinho|contagem) de {duration} [<called> {few:name}]",
      "<set> {duration} (no relogio|no cronometro|de contagem|de tempo) [<called> {few:name}]",
      "<set> [<a>] <timer> [de] (uns|umas|cerca de|mais ou menos|aproximadamente) {duration} [<called> {few:name}]",
      "<set> [<a>] <timer> {word:name} (de|por|com|para) {duration}",
      "(conta|conte|contar|cronometra|cronometre|cronometrar|marca|marque|marcar) {duration} [no relogio|no timer|de tempo|" +
        "no temporizador] [<called> {few:name}]",
      "(me avisa|me avise|avisa|avise|me chama|me chame|me alerta|me alerte|apita|apite|toca|toque|me notifica|me " +
        "notifique|avisa me|avise me|me da um toque|me da um aviso) (em|daqui a|depois de|apos|dentro de) {duration}",
      "(daqui a|em|dentro de|depois de) {duration} (me avisa|me avise|avisa|me chama|me chame|apita|toca|me alerta)",
      "(me avisa|me avise|avisa|avise|me chama|me chame) quando (passar|passarem|der|derem|completar|terminar|acabar|" +
        "acabarem|tiver passado|tiverem passado|fizer) [os|as|o|a] {duration}",
      "{duration} [a partir de agora] (no relogio|contando)", "comeca a contar {duration}", "comece a contar {duration}",
      "<set> [<a>] <timer> [<called> {few:name}] (de|com|em|para daqui a|daqui a) {duration}",
      "contagem regressiva de {duration}", "(faz|faca|inicia|inicie|comeca|comece) [uma] contagem [regressiva] de {duration}",
      "(marca|marque|conta|conte|cronometra|cronometre|coloca|coloque|bota|bote|poe|ponha|programa|programe) {duration} " +
        "para {few:name}",
      "(marca|marque|conta|conte|cronometra|cronometre) o tempo [de|por] {duration} [<called> {few:name}]",
      "(me avisa|me avise|me chama|me chame|me alerta|me alerte|me da um toque|me da um grito) [em|daqui a|depois de|apos|" +
        "quando der|quando passar|quando passarem] {duration}",
      "(me fala|me fale|me diz|me diga|me chama|me avisa|me avise) quando (passar|passarem|der|derem|acabar|acabarem|" +
        "completar|terminarem) [os|as] {duration}",
    ],
  ],
  [
    "wake",
    [
      "(me acorda|me acorde|acorda me|acorde me|me acordar|me desperta|me desperte|me chama|me chame|acorda eu) {moment} [(para|para o|para a|a tempo de|a tempo do|a tempo da) {few:why}]",
      "{moment} (me acorda|me acorde|me desperta|me chama|me levanta|me acordar)",
      "(me levanta|me levante|me tira da cama|me acorda ai|acorda a gente|nos acorda|nos acorde|me da um bom dia) {moment}",
      "{moment} (eu|) (preciso|tenho que|quero|vou) (acordar|levantar|estar de pe)",
      "(preciso|tenho que|quero|tenho de|vou ter que) (acordar|levantar|estar de pe|estar acordado|estar acordada|sair da cama|me " +
        "levantar) {moment} [entao|e] (me acorda|me acorde|me chama|me desperta|" +
        "<set> [<a>] <alarm>)",
      "(me acorda|me acorde|me desperta|me acordar) (em|daqui a|depois de|dentro de) {duration}",
      "(daqui a|em) {duration} (me acorda|me acorde)",
      "(preciso|eu preciso|tenho que|eu tenho que|quero|eu quero|tenho de|vou|devo|gostaria de) (acordar|levantar|estar de " +
        "pe|estar acordado|estar acordada|me levantar|despertar) {moment}",
      "(quero|preciso) que (voce) me acorde {moment}", "nao (me deixa|me deixe|deixa eu|deixe eu) dormir depois {moment}",
      "nao esquece de me acordar {moment}", "nao esqueca de me acordar {moment}",
    ],
  ],
  [
    "setAlarm",
    [
      "[<set>] [<a>] <alarm> [para|de|das|em|la para|para tocar|tocando|para despertar|marcado para|que toque] {moment} " +
        "[<called> {few:name}]",
      "[<set>] [<a>] <alarm> (para daqui a|daqui a|em|de|para) {duration} [<called> {few:name}]",
      "<set> [<a>] <alarm> [para|de|das|em] {moment} , hora (de|da|do) {few:why}", "{moment} [<set>] [<a>] <alarm>", "<set> [<a>] <alarm> <called> {few:name} (para|em|de) {moment}", "<alarm> {moment}",
      "(desperta|desperte|toca|toque) [o alarme|o despertador] {moment}", "<set> (para|) despertar {moment}",
      "<set> {moment} [no|como|de] <alarm>", "<set> (o|meu) relogio para despertar {moment}",
      "<set> [<a>] <alarm> (que|para) (me acorde|me acordar|me desperte|me despertar|toque|tocar) {moment}",
      "[<set>] [<a>] <alarm> [la|ai] [pelas|para|as|para as|la para as|por volta das] {moment}",
      "<alarm> [para|em] (daqui a|em) {duration}",
    ],
  ],
  [
    "remind",
    [
      "(tenho que|tenho de|preciso|devo|vou ter que|eu tenho que|eu preciso|tenho) {text} ({moment}|(em|daqui a|dentro de) {duration}) " +
        "[entao|e] " +
        "(me lembra|me lembre|me avisa|me avise|nao me deixa esquecer|me lembra disso|me cria um lembrete|cria um lembrete)",
      "{moment} [eu] (queria|quero|gostaria|preciso) que voce <remind> <about> {text}",
      "quando (for|forem|der|derem|bater) {moment} <remind> <about> {text}",
      "<remind> (em|daqui|daqui a|dentro de|depois de|para daqui a) {duration} <about> {text}", "<remind> {moment} <about> {text}",
      "<remind> <about> {text} (em|daqui a|dentro de|depois de) {duration}", "<remind> <about> {text} {moment}",
      "(em|daqui a|dentro de|depois de) {duration} <remind> <about> {text}", "{moment} <remind> <about> {text}",
      "<remind> para {moment} <about> {text}", "<remind> <about> {text} para {moment}",
      "(em|daqui a) {duration} <about> {text} <remind>",
      "(lembrete|novo lembrete|<set> [<a>] lembrete|<set> [<a>] aviso|cria um lembrete|preciso de um lembrete|quero um " +
        "lembrete) [para|de] {moment} [<about>|:] {text}",
      "(lembrete|novo lembrete|<set> [<a>] lembrete) (em|daqui a|para daqui a) {duration} [<about>] {text}",
      "{moment} [<about>] {text} [e] (me lembra|me lembre)", "<remind> : [<about>] {text} {moment}",
      "<remind> : [<about>] {text} (em|daqui a|dentro de) {duration}",
      "nao (posso|devo|quero) esquecer [<about>] {text} ({moment}|(em|daqui a) {duration}) [entao|e] (me lembra|me lembre|me avisa)",
    ],
  ],
  [
    "remindTask",
    [
      "((em|daqui|daqui a|dentro de) {duration}|{moment}) [eu|a gente] (preciso|precisa|tenho que|tenho de|tem que|devo|vou ter que) {text} [e|entao] [voce|pode|voce pode|tu] " +
        "(me lembra|me lembre|me lembrar|me avisa|me avise|me avisar)",
    ],
  ],
  [
    "cancelTimers",
    [
      "<off> (todos|todos os|todas as|todas|os dois|ambos os|tudo que e) [<the>] (timers|temporizadores|cronometros|" +
        "contagens|timer)",
      "<off> (os|meus|os meus|esses) (timers|temporizadores|cronometros)",
    ],
  ],
  [
    "cancelAlarms",
    [
      "<off> (todos|todos os|todas|os dois|ambos os) [<the>] (alarmes|despertadores|alarme)",
      "<off> (os|meus|os meus|esses) (alarmes|despertadores)",
    ],
  ],
  [
    "cancelReminders",
    [
      "<off> (todos|todos os|todas|os dois|ambos os) [<the>] (lembretes|avisos|lembrete)",
      "<off> (os|meus|os meus|esses) (lembretes)",
    ],
  ],
  [
    "cancelTimer",
    [
      "<off> [<the>] <timer>", "<off> [<the>] <timer> [de|com|dos|das] {duration}",
      "<off> [<the>] <timer> (chamado|do|da|de|dos|das|para|para o|para a) {few:name}", "<off> [<the>] <timer> {word:name}",
      "nao (preciso|quero|precisa|precisamos|vou precisar) mais [do|o|de] <timer> [<called> {few:name}] [(pode|voce pode) <off>|<off>]", "desiste (do|desse) <timer>",
    ],
  ],
  [
    "cancelAlarm",
    [
      "<off> [<the>] <alarm>", "<off> [<the>] <alarm> [das|para|de|do|da|para as|marcado para] {moment}",
      "<off> [<the>] <alarm> (de|para|da|do) {day}", "<off> [<the>] <alarm> (chamado|do|da|de|para|para o|para a) {few:name}",
      "nao (preciso|quero|precisa|vou precisar) mais (do|o|ser) <alarm>",
      "nao (preciso|quero|precisa|vou precisar) (do|o|de) <alarm> [de|para] {day} [pode] [<off>]", "nao (precisa|precisa mais) me acordar [mais]",
    ],
  ],
  [
    "cancelReminder",
    [
      "<off> [<the>] [ultimo|proximo] lembrete",
      "<off> [<the>] lembrete (chamado|do|da|de|dos|das|sobre|para|que diz|sobre o|sobre a) {text:name}",
      "nao precisa [mais] me lembrar (de|do|da|que|sobre) {text:name}",
    ],
  ],
  [
    "snoozeMinutes",
    [
      "(soneca|sonequinha) de [mais] {number}", "(adia|adie) [<the>] [alarme|timer|despertador] (por|em) [mais] {number}",
    ],
  ],
  [
    "snooze",
    [
      "[<set>] [<a>] soneca", "(aperta|ativa|aciona|bota|da) [o|a|uma] (soneca|botao soneca|botao da soneca|sonequinha)",
      "(me deixa|me deixe|deixa eu|deixe eu) [eu] (dormir|descansar|cochilar|ficar na cama) [so|por|mais um pouco] [mais] " +
        "{duration}",
      "(adia|adie|adiar|atrasa|atrase|prorroga|prorrogue|empurra|segura|posterga) [isso|ai|<the>] [alarme|timer|" +
        "despertador|lembrete] [por|em|para daqui a|mais|por mais|uns|para] {duration}",
      "(so|apenas|me da|me de|quero|preciso de|deixa|da) [so] (mais|outros|outras) {duration}",
      "(soneca|sonequinha) (de|por) [mais|outros] {duration} [mais|a mais]", "{duration} (a mais|de soneca)",
      "(ativa|ative|modo|aperta|faz|coloca|poe) [a|o|o modo] soneca",
      "(adia|adie|adiar) [<the>] [alarme|timer|despertador|lembrete] [por|em|para daqui a] {duration}",
      "(adia|adie|adiar) [<the>] (alarme|timer|despertador|lembrete)", "mais {duration} [de sono|de soneca|de cama|dormindo]", "(ainda nao|nao|ah nao) [so] mais {duration}",
      "(me da|me de|da|quero|so) mais {duration} [de sono|de soneca|de cama]", "soneca de {duration}",
      "(me lembra|me lembre|me avisa|toca|me acorda|me acorde) (de novo|novamente|outra vez) (em|daqui a) {duration}",
      "(adia|adie)", "deixa eu dormir mais {duration}", "(me deixa|me deixe) dormir mais {duration}",
    ],
  ],
  [
    "tellTimers",
    [
      "quanto [tempo] [eu] <restam> [de tempo] [ainda] [(no|para o|do|de|para|nesse|neste|para acabar o|para terminar o|" +
        "para tocar o|ate o) [meu] <timer> [<called> {few:name}]] [acabar|tocar|terminar]",
      "quantos (minutos|segundos) <restam> [ainda] [(no|para o|do|de|para|para acabar o|para tocar o) [meu] <timer> " +
        "[<called> {few:name}]] [acabar|tocar|terminar]",
      "quantas horas <restam> (no|para o|do) [meu] <timer>",
      "quanto [tempo] (<restam>) (para|no|na|do|da) [o|a] {few:name} (ficar pronto|ficar pronta|acabar|terminar)",
      "quando [e que] [<the>] <timer> [<called> {few:name}] (acaba|termina|toca|vai tocar|vai acabar|fica pronto)",
      "quando (acaba|termina|toca|vai tocar|vai acabar|vai terminar|termina o tempo) [<the>] <timer> [<called> {few:name}]",
      "(como esta|como anda|como vai|em quanto esta|em que pe esta|cade|a quantas anda) [<the>] <timer> [<called> {few:name}]",
      "quanto [tempo] (marca|mostra|diz) [<the>] <timer>",
      "(quais|que) (timers|temporizadores|cronometros) (eu tenho|tenho|estao ativos|estao rodando|estao rolando|tao rodando|tao rolando|tao ligados|estao ligados|existem|ha|" +
        "tem|estao marcados|estao correndo|eu marquei|estao tocando|estao contando)",
      "quais sao [<the>] (timers|temporizadores|cronometros) [ativos|atuais|que tenho]",
      "<readverb> [todos] [<the>] (timers|temporizadores|cronometros|timer|temporizador|cronometro) [ativos|todos]",
      "(tem|tenho|ha|existe|eu tenho|temos) [algum|alguns|um] (timer|timers|temporizador|temporizadores|cronometro) [ativo|" +
        "ligado|rodando|rolando|correndo|marcado|ativos|funcionando]",
      "[e] [<the>] <timer> [<called> {few:name}] (falta quanto|faltam quantos minutos|esta em quanto|esta quanto|em que pe esta)",
      "[<the>] <timer> [<called> {few:name}] (esta|ainda esta) (ligado|rodando|ativo|correndo|funcionando)",
      "quantos (timers|temporizadores|cronometros) (eu tenho|tenho|estao rodando|estao ativos|ha|tem|existem)",
      "tempo restante [(do|no) [meu] <timer> [<called> {few:name}]]",
      "qual [e] o tempo restante [(do|no) [meu] <timer> [<called> {few:name}]]",
      "em quanto tempo (toca|acaba|termina) [<the>] <timer> [<called> {few:name}]",
      "(falta|vai demorar) (muito|quanto) [tempo] [ainda] (no|para o|do) <timer> [<called> {few:name}] [acabar|tocar|terminar]",
      "meus (timers|temporizadores)", "status (do|dos) <timer>",
      "quanto [tempo] [ainda] (tem|falta|resta|sobra) [ainda] [n] [o|no|do|para o|de tempo no] [meu] <timer> [(do|da|de|" +
        "dos|das) {few:name}]",
      "quando [e que] (o|meu) <timer> [(do|da|de|dos|das) {few:name}] (toca|acaba|termina|vai tocar|vai acabar|apita|vai " +
        "apitar|desperta)",
      "(o|meu) <timer> [(do|da|de|dos|das) {few:name}] (toca|acaba|termina) (quando|em quanto tempo|daqui a quanto)",
      "(ja|esta) (acabou|acabando|terminou|terminando|tocou) [o|meu] <timer> [(do|da|de|dos|das) {few:name}]",
      "(quantos minutos|quantos segundos|quanto tempo) [ainda] (falta|faltam) [ainda] (para|no|na) [o|a|os|as] {few:name}",
      "(quantos minutos|quantos segundos|quanto tempo) (ainda|mais|ainda tem|ainda faltam) [faltam|falta|no <timer>|para " +
        "acabar]",
      "quanto falta (no|na) {few:name}", "(falta|faltam) (muito|quanto|quantos minutos|quanto tempo) [tempo] [ainda] (para|no|na) [o|a|" +
        "os|as] {few:name} [ficar pronto|acabar|terminar]",
      "[e] (o|a|os|as) {few:name} (falta|faltam) (muito|quanto|quanto tempo|quantos minutos)",
      "quanto [tempo] [ainda] falta para (o|a) (fim|final|termino) (do|da|de|dos|das) {few:name}",
    ],
  ],
  [
    "tellAlarms",
    [
      "(para quando|para que horas|para que hora|a que horas|que horas|quando|em que horas|que hora) (esta|e|toca|vai " +
        "tocar|ficou|esta marcado|esta programado|foi marcado|vai despertar|desperta) [marcado|programado] [<the>] [proximo|" +
        "meu proximo|primeiro] <alarm> [toca|marcado|vai tocar]",
      "(para quando|para que horas|a que horas|quando|que horas) [<the>] [proximo|meu proximo] <alarm> (esta marcado|esta " +
        "programado|toca|vai tocar|esta)",
      "(quais|que) (alarmes|despertadores) (eu tenho|tenho|estao ativos|estao ligados|existem|ha|tem|estao marcados|eu " +
        "marquei|estao programados)",
      "quais sao [<the>] (alarmes|despertadores) [ativos|marcados]",
      "<readverb> [todos] [<the>] (alarmes|despertadores|alarme|despertador)",
      "(tem|tenho|ha|existe|eu tenho|tem algum) [algum|alguns|um] (alarme|alarmes|despertador) [ativo|ligado|marcado|" +
        "programado|ativos|marcados] [para amanha]",
      "[<the>] <alarm> (esta|ficou) (ligado|marcado|ativo|programado)",
      "quantos alarmes (eu tenho|tenho|ha|tem|estao marcados)",
      "(a que horas|que horas|quando) (voce vai|vai|vou|eu vou) (me acordar|acordar)",
      "quanto tempo <restam> (para|ate) [<the>] <alarm> [tocar]", "quando (e|toca) [<the>] [proximo|meu proximo] <alarm>",
      "qual [e] [<the>] [proximo|meu proximo] <alarm>", "a que horas eu acordo", "(que horas|para que horas|quando) (eu|) (pedi|mandei|falei) para voce me (acordar|chamar)",
      "(tem|tenho|existe|botei|coloquei|marquei|eu marquei|eu coloquei) [algum] <alarm> (para amanha|amanha|marcado|hoje|" +
        "para hoje)",
      "(que|quais) horas (eu|) (coloquei|marquei|botei) [<the>] <alarm>", "[<the>] meus alarmes",
      "(o|meu) <alarm> (esta|ficou|e|toca) (para|a|em) (que|quais) horas",
      "(quais|que) (alarmes|despertadores) (eu|) (coloquei|botei|deixei|programei)",
    ],
  ],
  [
    "tellReminders",
    [
      "(quais|que) lembretes (eu tenho|tenho|estao ativos|existem|ha|tem|estao marcados|eu marquei|eu criei|estao programados)",
      "quais sao [<the>] [proximos] lembretes [(de|para|do|da) {day}]", "[<the>] lembretes (de|para|do|da) {day}",
      "<readverb> [todos] [<the>] lembretes",
      "(tem|tenho|ha|existe|eu tenho) [algum|alguns|um] (lembrete|lembretes) [ativo|marcado|para hoje|hoje|marcados]",
      "quantos lembretes (eu tenho|tenho|ha|tem)", "qual [e] [<the>] [proximo|meu proximo] lembrete",
      "quando e [<the>] [proximo|meu proximo] lembrete",
      "(do que|de que|o que) (eu pedi para voce me lembrar|pedi para me lembrar|voce tem que me lembrar|voce vai me lembrar)",
      "meus lembretes", "(tem|tenho|ha) lembretes [para hoje|hoje|marcados]",
      "(o que|que) (eu|) (tenho|preciso|devo) (que|de) lembrar [hoje]",
      "(do que|de que) (eu|) (pedi|tenho) para (ser lembrado|ser lembrada|voce me lembrar)",
      "(quais|que) lembretes (faltam|estao pendentes|vem ai|eu deixei)",
    ],
  ],
];
