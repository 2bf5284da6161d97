// The phrases by which Portuguese asks for facts and sums.

import type { Request } from "./meanings.ts";

export const portugueseFacts: readonly Request[] = [
  [
    "battery",
    [
      "quanto (de bateria|tem de bateria|resta de bateria|tenho de bateria|ainda tem de bateria|de carga)",
      "quanto [de] bateria <restam> [ainda|restando]",
      "quanto (tem|tenho|resta|falta|sobra|ainda tem|ainda resta|ainda tenho) de (bateria|carga) [na bateria|no notebook|ainda]",
      "(como esta|como anda|qual e|qual|quanto esta|quanto tem|em quanto esta|quanto tem na|como vai|a quantas anda) " +
        "[<the>] [nivel|carga|estado|porcentagem|percentual|status|nivel de carga] [de|da] (bateria|carga da bateria) [do " +
        "notebook|do computador|agora]",
      "[nivel|status|carga|estado|porcentagem] [de|da] bateria",
      "[eu] (estou|estamos) (na|usando a|com a|so na) bateria", "[eu] (estou|estamos) (na tomada|carregando)",
      "[<the>] (notebook|computador|bateria|laptop|pc) (esta|ta) (carregando|na tomada|carregado|carregada|cheia|fraca|" +
        "acabando|descarregando|ligado na tomada|baixa|conectado na tomada|na bateria)",
      "quanto tempo [ainda] (dura|vai durar|resta de|aguenta|tem de) [<the>] (bateria|notebook)",
      "(quantos|quanto) por cento [de] (bateria|tem a bateria|esta a bateria|tem de bateria|de bateria tem) [tem|tenho|" +
        "resta|restam|eu tenho]",
      "(tem|tenho|ainda tem|ainda tenho) [quanta|alguma|muita] bateria", "quanta (bateria|carga) [ainda] [<restam>] [ainda]",
      "a bateria esta em quanto", "a quanto esta a bateria", "quanto falta de bateria",
      "(tem|tenho|ainda tem|ainda tenho) (quanto|quanta) [de] bateria",
      "(quanto|quantos por cento) [tem|de] [a|na|de|minha] [minha] (bateria|carga) [tem|esta|ta|eu tenho|eu ainda tenho|" +
        "restam|sobra|sobrou]",
      "(diz|diga|fala|fale|mostra|mostre|ve|veja|checa|confere|verifica) [ai] [<the>] [nivel|porcentagem|percentual|carga|" +
        "estado] [de|da] bateria",
      "[<the>] (nivel|porcentagem|percentual|estado|carga) [de|da] [minha] bateria",
      "[<the>] bateria (esta|ta) (em quanto|com quanto|como|acabando|no fim|boa|ok|baixa|cheia)",
      "(preciso|tenho que|precisa) [de] (carregar|por para carregar|botar para carregar|colocar na tomada) [<the>] " +
        "(notebook|computador|laptop|bateria)",
      "[e] [<the>] bateria", "(preciso|precisa|tenho que|devo) [ja] (ligar|por|botar|colocar|plugar) [<the>] [notebook|computador|laptop] na tomada",
      "[<the>] bateria [ainda] (dura|aguenta|vai durar|vai aguentar) (quanto tempo|quanto|ate quando|muito)",
      "(esta|ta) (carregando|na tomada) [<the>] [notebook|computador]",
    ],
  ],
  [
    "disk",
    [
      "quanto (espaco|espaco em disco|armazenamento|espaco de armazenamento|disco|espaco livre|espaco no disco|hd) [livre|" +
        "em disco|disponivel] [<restam>] [ainda] [eu] [de] [<free>] [no (disco|hd|computador|ssd|pc|notebook|sistema)|em " +
        "disco] [<free>]",
      "quanto [eu] (tem|tenho|resta|sobra|ha|ainda tem|falta) de (espaco|espaco em disco|disco|armazenamento|espaco livre|" +
        "espaco no disco|hd) [livre|no disco|no computador|disponivel|no hd|em disco|no ssd]",
      "(como esta|qual e|qual) [<the>] (espaco|espaco em disco|uso do disco|armazenamento|uso de disco|espaco livre|disco|" +
        "espaco do disco) [livre|em disco|no disco|disponivel|do disco]",
      "(espaco em disco|espaco livre|uso do disco|espaco no disco) [livre]",
      "[<the>] (disco|hd|ssd|armazenamento|computador) (esta|ta) (cheio|quase cheio|lotado|ficando cheio)",
      "(tem|tenho|ainda tem|ainda tenho|ha) [algum|muito] espaco [livre] [no|em] (disco|hd|computador|ssd)",
      "quao cheio esta o (disco|hd)", "(esta|estou) (faltando|sem|ficando sem) espaco [em disco|no disco]",
      "quanto [de] (espaco|armazenamento|disco) [livre] [eu|a gente|] [ainda] (tem|tenho|temos|sobra|sobrou|resta|falta|" +
        "ha) [ainda] [livre] [no|em|na] [disco|hd|computador|ssd|pc|notebook|maquina]",
      "quanto [ainda] (sobra|sobrou|resta|restou|tem|tenho|falta|cabe) [ainda] [de] [espaco|armazenamento|livre] [livre] " +
        "(no|em|na) [meu|minha] (disco|hd|computador|ssd|pc|notebook|maquina)",
      "(meu|o) (disco|hd|ssd|computador) (esta|ta) [quase|muito|ficando] (cheio|lotado|sem espaco)",
      "(tem|tenho|ainda tem|ainda tenho|sobra) [muito|algum|quanto] espaco [livre]",
      "(tem|tenho) quanto [de] espaco [livre] [no disco|no hd|no computador]",
      "(espaco|armazenamento) (livre|disponivel|restante)",
      "(como esta|como anda|como ta) (o disco|o hd|meu hd|o espaco|meu disco)",
      "quantos gigas [livres] (eu tenho|tenho|tem|restam|sobram|estao livres) [livres] [no disco|no hd|em disco]",
    ],
  ],
  [
    "memory",
    [
      "quanta (memoria|ram|memoria ram) [livre|disponivel] [<restam>] [ainda] [eu] [esta|estou] [<free>]",
      "quanto (de memoria|de ram|de memoria ram) [livre] (tem|tenho|resta|sobra|esta|estou|ha|eu tenho) [<free>]",
      "quanto (tem|tenho|resta|sobra|esta) de (memoria|ram|memoria ram) [<free>]",
      "(como esta|qual e|qual|quanto esta) [<the>] (uso de|uso da|consumo de|) (memoria|ram|memoria ram) [livre|do computador]",
      "(como esta|qual e) a memoria [ram] [do computador|livre]", "(uso de|uso da) (memoria|ram)",
      "memoria (livre|usada|disponivel)", "[<the>] memoria (esta|ta) (cheia|quase cheia|acabando)",
      "(quanto|quanta) [de] (memoria|ram|memoria ram) [ram] [livre] [que] [eu|o computador|esse computador|este computador|" +
        "esta maquina|essa maquina|o notebook|meu computador|a maquina|esse notebook|o pc] [ainda] (tem|tenho|esta usando|ta " +
        "usando|usa|sobra|sobrou|resta|restou|ha) [ainda] [livre|no computador]",
      "(quanto|quanta) [de] (memoria|ram|memoria ram) (tem|tenho|sobra|resta) [<free>] [no|neste|nesse] [computador|notebook|pc]",
      "(tem|tenho) (quanto|quanta) [de] (memoria|ram) [livre]",
      "quantos gigas de (memoria|ram|memoria ram) [eu|] (tem|tenho|tem o computador|tem esse computador|estao livres|sobram)",
      "(memoria|ram) (livre|usada|disponivel|em uso)",
      "(quanto|quanta) [de] (memoria|ram|memoria ram) (tem|tenho|usa|ha) [livre] [n] [o|esse|este|meu|nesse|neste|no] " +
        "(computador|notebook|pc|laptop)",
      "[<the>] (uso|consumo) (de|da) (memoria|ram)",
      "quanta memoria (o computador|esse computador|a maquina|este computador) tem",
    ],
  ],
  [
    "network",
    [
      "(em que|em qual|qual|que|a que|a qual) <network> (estou|eu estou|estamos|o computador esta|esta|e essa|e|estou " +
        "conectado) [conectado|conectada|usando|ligado|conectados] [agora]",
      "qual [e] [o nome da|o nome do|a|o|minha|a minha|nome da] <network> [atual|conectada|que estou usando|em que estou]",
      "(estou|estamos|eu estou|o computador esta|esse computador esta) (online|conectado|conectada|na internet|conectado a " +
        "internet|conectado na internet|offline|com internet|sem internet|conectado ao wifi|no wifi|conectado no wifi)",
      "(tem|tenho|ha|temos|eu tenho) (internet|conexao|rede|wifi|conexao com a internet|sinal de internet)",
      "[<the>] (internet|rede|wifi|conexao) (esta|ta|caiu) [funcionando|no ar|ligada|conectada|ok|fora do ar|conectado|ligado]",
      "nome (da rede|do wifi)", "(que|qual) <network> e (esse|essa|este|esta)",
      "(qual|qual e|como e|diz|me diz|diga|fala|me fala) [o] nome [da|do|de] [minha|meu|nossa|nosso] <network>",
      "como [e que] se chama [<the>] [minha|meu|nossa] <network>",
      "(eu|) [estou|estamos|to|o computador esta|o notebook esta|esta] [conectado|conectada|ligado|ligada|usando|na|no] " +
        "[em|na|no|a] (qual|que) <network>",
      "(qual|que) <network> (e esta|e essa|que e essa|que estou usando|o computador esta usando|eu uso|estamos usando|esta " +
        "conectada|esta conectado)",
      "(qual|que) [e] [a|o] [minha|meu|nossa] <network>", "(como esta|como anda) [<the>] (internet|rede|conexao|wifi)",
      "como se chama [<the>] (rede|wifi)",
    ],
  ],
  [
    "daysBetween",
    [
      "quantos dias (ha|tem|existem|sao|vao|tem de|) (entre|de) {day:from} (e|a|ate) [o|a] {day:to}",
      "quantos dias (entre|de) {day:from} (e|a|ate) [o|a] {day:to}",
      "(qual a diferenca|qual e a diferenca|diferenca) [de|em] [dias] entre {day:from} e {day:to}",
      "quanto tempo [ha|tem] (entre|de) {day:from} (e|a|ate) {day:to}",
    ],
  ],
  [
    "daysUntil",
    [
      "quantos dias (faltam|restam|tem|sao|ainda faltam|falta|ha|) [ainda] (para|ate) [o|a] {day}",
      "quantas semanas (faltam|restam|tem|) (para|ate) [o|a] {day}", "[daqui] (ate|para) [o|a] {day} (sao|faltam|falta|tem|da|dao|ha) " +
        "(quantos dias|quanto tempo|quanto)", "quantos dias (para|ate) [o|a] {day}",
      "(quanto tempo|quanto|quanto tempo ainda) (falta|resta|tem|faltam|ainda falta) (para|ate) [o|a] {day} [em dias]",
      "(daqui a|em) quantos dias (e|sera|vai ser|cai) {day}",
      "(faltam|falta) (quantos dias|quanto|quanto tempo|muito) (para|ate) [o|a|chegar o|chegar] {day}",
      "(quanto|quanto tempo|quantos dias|quantos dias mais|quantas semanas) [ainda] (falta|faltam|resta|restam|ainda " +
        "faltam|ainda falta|tem|temos) [ainda] (para|ate) [o|a|chegar o|chegar|chegar a|ser] {day}",
      "(esta|ta) longe [do|da|o] {day}", "daqui a quanto tempo e [o|a] {day}",
      "(conta|conte) [os|quantos] dias (para|ate) [o|a] {day}", "[o|a] {day} (e|cai) daqui a (quantos dias|quanto tempo|quanto)",
    ],
  ],
  [
    "daysSince",
    [
      "(ha|faz|fazem) (quantos dias|quanto tempo) (foi|que foi|desde|aconteceu|) {past:day}",
      "quantos dias (se passaram|passaram|faz|faz que foi|ja passaram|fazem|tem|ha) desde [o|a] {past:day}",
      "quantos dias desde [o|a] {past:day}", "quanto tempo (faz|passou|se passou|ja passou|tem) desde [o|a] {past:day}",
    ],
  ],
  [
    "weekday",
    [
      "(que|qual|em que|em qual) (dia|dia da semana|data) (e|era|foi|sera|vai ser|cai|caiu|vai cair|e que e|esta) [o|a|no|em] {day}",
      "(que|qual) (dia da semana|dia|data) [e|sera] [o|a|no|em] {day} (e|foi|sera|cai|caiu|vai cair|vai ser)",
      "[o|a] {day} (e|cai|vai ser) (em|num|numa|uma|um) (segunda|terca|quarta|quinta|sexta|sabado|domingo) [feira] [<year>] [ne]",
      "{day} [agora] (e|vai ser|sera|cai) [no] dia (quanto|quantos|qual)", "{day} (e|cai|foi|sera|vai ser|vai cair) (que|em que|em qual|qual|" +
        "num) (dia|dia da semana)",
      "(em que|que|qual) dia (da semana|) (cai|sera|foi|vai cair) [o|a] {day}",
      "qual [e|sera|foi|vai ser] [a] data [de|da|do|em] {day}", "que data (e|sera|vai ser) {day}",
      "(em que|que|qual|em qual) (dia|data|dia da semana) [e que] (cai|vai cair|sera|vai ser|foi|caiu|e) [o|a|no|na] {day}",
      "[o|a] {day} (cai|sera|e|vai ser|vai cair|foi|caiu) (em|num|no|) [um|uma] (que|qual) (dia|data|dia da semana)",
      "{day} (e|foi|sera|vai ser) (que dia|que data|qual dia|dia de que)", "[<the>] (data|dia da semana) [de|do|da] {day}",
      "quando (e|sera|cai|vai ser) [o|a] {day}", "[o|a] {day} (cai|e|vai ser|vai cair|sera) (em|no|) [que|qual] dia [da semana] [<year>]",
      "que dia do mes (e|sera|vai ser|cai) [o|a|no|na] {day} [agora|que vem]",
    ],
  ],
  // After the days: "quanto falta para o Natal" asks for those.
  [
    "tellTimers",
    [
      "quanto [tempo] [ainda] falta [ainda] para (o|a|os|as) {word:name}",
      "quanto [tempo] [ainda] falta [ainda] para (o|a|os|as) {word:name} (ficar pronto|ficar pronta|ficarem prontos|" +
        "ficarem prontas|acabar|terminar|sair)",
    ],
  ],
  [
    "convert",
    [
      "[quanto e|quanto sao|quanto da|converte|converta|converter|quanto vale|passa|transforma|transforme|quanto fica] " +
        "{measure} (em|para|a|equivale a quantos|equivalem a quantos|sao quantos|sao quantas|e quantos|da quantos|da quantas|" +
        "dao quantos|em quantos) {unit}",
      "(quantos|quantas) {unit} (sao|e|tem|ha|tem em|ha em|existem em|em|cabem em|da|dao|sao em|equivalem a|tem um|tem uma|" +
        "equivale a|valem|fazem) {measure}",
      "(quantos|quantas) {unit} (tem|mede) (um|uma|o|a) {word:thing} de {measure}", "(quantos|quantas) {unit} {measure} (tem|sao|da|dao|e)", "{measure} (em|para) {unit}",
      "{measure} (sao|e|da|dao|equivale a|equivalem a) (quantos|quantas) {unit}",
    ],
  ],
  [
    "add",
    [
      "(soma|some|somar|adiciona|junta) {number:a} (com|e|mais|a) {number:b}",
      "[qual e|quanto e] a soma de {number:a} (e|com) {number:b}",
    ],
  ],
  [
    "subtract",
    [
      "(subtrai|subtraia|tira|tire|diminui|desconta) {number:b} de {number:a}",
      "[qual e] a diferenca entre {number:a} e {number:b}",
    ],
  ],
  [
    "multiply",
    [
      "se (eu|voce|) multiplicar {number:a} (por|com|e|vezes) {number:b} (da quanto|quanto da|fica quanto)", "(multiplica|multiplique|multiplicar) {number:a} (por|com|e|vezes) {number:b}",
      "[qual e] o produto de {number:a} (e|por) {number:b}",
    ],
  ],
  [
    "divide",
    [
      "(divide|divida|dividir|reparte|racha) {number:a} [reais|dolares|euros] (por|em|entre|para) {number:b} [pessoas|amigos|partes|gente]",
    ],
  ],
  [
    "percentage",
    [
      "(quantos por cento|quanto por cento|que porcentagem|qual porcentagem|que percentual|qual percentual) (de|do|da) {number:b} (e|" +
        "sao|representa|da|corresponde a) {number:a}",
      "{number:a} (e|sao|representa|corresponde a) (quantos por cento|quanto por cento|que porcentagem|qual porcentagem) (de|do|da) " +
        "{number:b}",
    ],
  ],
  [
    "calculate",
    [
      "[quanto que e|quanto que da|quanto que fica|quanto que sao|quanto e|quanto sao|quanto da|quanto fica|quanto e que da|quanto e " +
        "que e|calcula|calcule|calcular|qual e|qual|qual " +
        "o resultado de|qual e o resultado de|resultado de|resolve|resolva|faz a conta|faca a conta|faz a conta de|faca a " +
        "conta de|computa|some|soma|quantos sao|quanto vale|o resultado de|me da o resultado de|conta de|faz as contas de|" +
        "faz|quanto seria|quanto daria] {sum} [reais|dolares|euros|pessoas|coisas] [=] [da quanto|e quanto|sao quanto|e " +
        "igual a|e igual a quanto|quanto e|quanto da|fica quanto|da|igual a|quanto]",
      "quantos (da|sao|e) {sum}",
      "(soma|some|somar|junta|adiciona|qual e a soma de|a soma de|o total de) {numbers:sum}",
      "quanto (da|e|sao|fica|dao) {numbers:sum} [somados|juntos|tudo junto]",
      "(qual|me diz|me da|calcula|quero) [e|seria] [o] (resultado|valor|total) (de|da conta) {sum}",
      "{sum} (da|e|sao|fica|igual a|e igual a) (quanto|quantos)", "{sum} (quanto e|quanto da|quanto fica)",
      "(me diz|me fala|calcula|descobre|quero saber) quanto (e|da|fica|sao) {sum}",
    ],
  ],
];
