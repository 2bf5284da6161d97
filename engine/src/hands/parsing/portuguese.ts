// How Portuguese asks for a hand: what its phrases share, and what is only polite.

import { portugueseChanges } from "./portugueseChanges.ts";
import { portugueseDesktop } from "./portugueseDesktop.ts";
import { portugueseFacts } from "./portugueseFacts.ts";
import { portugueseMemory } from "./portugueseMemory.ts";
import { portugueseNotes } from "./portugueseNotes.ts";
import { portugueseShorthand } from "./portugueseShorthand.ts";
import { portugueseSound } from "./portugueseSound.ts";
import { portugueseTimers } from "./portugueseTimers.ts";
import type { Phrasing } from "./meanings.ts";

export const portuguese: Phrasing = {
  parts: {
    of: "(do|da|de|dos|das|para o|para a|para)",
    extra: "((mais|outros|outras) {duration}|{duration} (a mais|mais))",
    retime: "(muda|mude|mudar|altera|altere|alterar|troca|troque|trocar|passa|passe|passar|ajusta|atualiza|remarca|remarque|reagenda|reagende|transfere|transfira|corrige|joga|reprograma)",
    set:
      "(coloca|coloque|colocar|bota|bote|botar|poe|ponha|por|cria|crie|criar|faz|faca|fazer|inicia|inicie|iniciar|comeca|" +
      "comece|comecar|programa|programe|programar|marca|marque|marcar|ativa|ative|ativar|liga|ligue|ligar|define|defina|" +
      "definir|ajusta|ajuste|ajustar|configura|configure|configurar|aciona|acione|acionar|quero|preciso de|queria|me da|me " +
      "de|dispara|dispare|abre|adiciona|adicione|agenda|agende|agendar|seta|sete|deixa|deixe|arma|arme|roda|rode|mete|" +
      "solta|me arruma|me ve|me faz|me poe|me bota|me coloca|me cria|me marca|me liga|taca|manda) [me|ai|para mim|la]",
    a: "(um|uma|outro|outra|mais um|mais uma|um novo|uma nova|novo|nova|o|a|meu|minha)",
    timer:
      "(timer|temporizador|cronometro|timer de cozinha|contador|contagem|contagem regressiva|alarme de contagem|cronometro " +
      "regressivo|marcador de tempo|contagem de tempo)",
    alarm: "(alarme|despertador|alarme do despertador)",
    called:
      "(chamado|chamada|com o nome|com nome|com o nome de|de nome|nomeado|para|para o|para a|para os|para as|do|da|de|dos|" +
      "das|com o titulo)",
    the:
      "(o|a|os|as|meu|minha|meus|minhas|esse|essa|este|esta|aquele|aquela|nosso|nossa|o meu|a minha|os meus|as minhas|" +
      "desse|deste|do meu|da minha)",
    off:
      "(cancela|cancele|cancelar|para|pare|parar|apaga|apague|apagar|remove|remova|remover|exclui|exclua|excluir|deleta|" +
      "delete|deletar|desliga|desligue|desligar|desativa|desative|desativar|tira|tire|tirar|encerra|encerre|encerrar|" +
      "interrompe|interrompa|interromper|elimina|elimine|silencia|silencie|esquece|esqueca|anula|anule|desmarca|desmarque|" +
      "limpa|limpe|descarta|descarte|termina|termine|mata|mate|derruba|zera|zere|corta|corte|acaba com|pode parar|pode " +
      "desligar|pode apagar)",
    remind:
      "(me lembra|me lembre|lembra me|lembre me|me lembrar|lembrar me|me avisa|me avise|avisa me|avise me|me avisar|" +
      "lembrete|novo lembrete|nao me deixa esquecer|nao me deixe esquecer|nao deixa eu esquecer|nao deixe eu esquecer|me " +
      "recorda|me recorde|<set> [<a>] lembrete|<set> [<a>] aviso|preciso de um lembrete|quero um lembrete|me cria um " +
      "lembrete|quero ser lembrado|quero ser lembrada|preciso ser lembrado|preciso que voce me lembre|quero que voce me " +
      "lembre|preciso que me lembre|quero que me lembre|me faz lembrar|me faca lembrar|me lembra ai|me relembra|me " +
      "relembre|me alerta|me alerte|me recordar|lembra eu|lembra a gente|nao me deixa perder|avisa eu|voce me lembra|voce me lembre|" +
      "voce me avisa|que voce me lembre|que voce me avise|que me lembre|que me avise|" +
      "me lembrar ai|ser lembrado|ser lembrada|me lembrar|me ajuda a lembrar|me ajude a lembrar|me cutuca|me da um toque|me cobra|me cobre|me lembrasse|me avisasse|faz um " +
      "lembrete|lembra me ai|me manda um lembrete|" +
      "quero lembrar|preciso lembrar|nao posso esquecer|me notifica|me notifique)",
    about:
      "(de|do|da|que|sobre|para|para eu|que eu preciso|que eu tenho que|que eu tenho de|que eu preciso de|que devo|que eu " +
      "devo|que preciso|que tenho que|que tenho|do dos|dos|das|que eu tenho|que e hora de|que esta na hora de|para lembrar " +
      "de|a)",
    onto: "(na|no|a|ao|em|para a|para o|dentro da|dentro do|nessa|nesta|nas|nos)",
    whose: "(minha|nossa|meu|nosso|essa|esta|a|a minha|a nossa|o|o meu|o nosso|as minhas|os meus|as|os|minhas|meus|uma)",
    ofwhose: "(da|na|da minha|na minha|da nossa|na nossa|de|do|no|do meu|no meu|dessa|nessa|desta|nesta)",
    listname: "[de|da|do|das|dos|para|para a|para o] {few:list}",
    addverb:
      "(adiciona|adicione|adicionar|coloca|coloque|colocar|bota|bote|botar|poe|ponha|por|inclui|inclua|incluir|acrescenta|" +
      "acrescente|acrescentar|anota|anote|anotar|escreve|escreva|escrever|insere|insira|inserir|joga|jogue|taca|soma|lanca|" +
      "lance|adcione|adciona|marca|marque|registra|registre|mete|meta|empurra|lista|pendura|lancar|registrar|jogar|meter) " +
      "[tambem|ai|la]",
    removeverb:
      "(remove|remova|remover|tira|tire|tirar|apaga|apague|apagar|risca|risque|riscar|exclui|exclua|excluir|deleta|delete|" +
      "deletar|retira|retire|retirar|elimina|elimine|corta|corte|marca como comprado|cortar|eliminar|some com|arranca|" +
      "limpa|limpe)",
    readverb:
      "(rele|releia|le|leia|ler|mostra|mostre|mostrar|me mostra|me mostre|me le|me leia|diz|diga|me diz|me diga|fala|fale|" +
      "me fala|me fale|lista|liste|listar|abre|abra|confere|confira|ve|veja|ver|checa|cheque|exibe|exiba|conta|quero ver|" +
      "quero ouvir|repassa|consulta|consulte|verifica|verifique|recita|recite|passa|passe|deixa eu ver|deixa eu ouvir|" +
      "quero ler|me passa|me passe|me conta|canta|repassa)",
    volume:
      "(volume|som|audio|volume do som|volume do sistema|volume do computador|volume das caixas|volume geral|som do " +
      "computador|som do sistema|volume da musica|som do pc|volume do pc|musica|volume do alto falante|alto falante)",
    bit:
      "(so um tiquinho|so um tantinho|so um bocadinho|so um pouquinho|um bocado|um bocadinho|um cadinho|um tanto|um pouco|" +
      "um pouquinho|um tiquinho|mais|um pouco mais|um pouquinho mais|muito|bem|bastante|so um pouco|mais um pouco|um " +
      "tantinho|levemente|mais um pouquinho|bem mais|muito mais)",
    percent: "(por cento|%|porcento)",
    up:
      "(aumenta|aumente|aumentar|aumentasse|sobe|suba|subir|levanta|levante|eleva|eleve|alteia|da uma aumentada no|da uma " +
      "subida no|aumentando)",
    down:
      "(abaixa|abaixe|abaixar|diminui|diminua|diminuir|baixa|baixe|baixar|reduz|reduza|reduzir|desce|desca|descer|da uma " +
      "abaixada no|da uma baixada no|da uma diminuida no)",
    music: "(musica|cancao|faixa|video|som|player|reproducao|filme|podcast|audio|tocador|playlist|album|midia|serie)",
    screen: "(tela|computador|pc|sessao|desktop|area de trabalho|notebook|maquina|laptop|ecra|monitor)",
    open:
      "(abre ai|abra ai|me abre|me abra|abre|abra|abrir|inicia|inicie|iniciar|executa|execute|executar|roda|rode|rodar|" +
      "lanca|lance)",
    restam:
      "(falta|faltam|resta|restam|tem|tenho|sobra|sobram|ainda falta|ainda faltam|ainda resta|ainda restam|ainda tem|ainda " +
      "tenho|sobrou|esta faltando|estao faltando|temos|ainda ha|ha|ainda sobra|ainda sobram|ainda falta|eu tenho|eu ainda " +
      "tenho|tenho ainda|a gente tem|a gente ainda tem|me resta|me sobra)",
    free:
      "(livre|livres|disponivel|disponiveis|sobrando|restando|restante|de sobra|vago|usada|usado|em uso|ocupado|ocupada|" +
      "sendo usada|sendo usado|usando|de folga|sobrou)",
    year: "(este ano|esse ano|deste ano|desse ano|neste ano|nesse ano|ano que vem)",
    network: "(rede do wifi|rede de internet|rede|wifi|wi fi|rede wifi|rede wi fi|rede sem fio|internet|conexao|conexao de " +
      "rede)",
  },
  before: [
    "por favor", "por gentileza", "por obsequio", "com licenca", "(desculpa|desculpe) (incomodar|o incomodo) [mas]", "tipo assim",
    "(o senhor|a senhora) (pode|poderia|consegue|podia|saberia)",
    "(voce|o senhor|a senhora) (saberia|sabe|pode|poderia) me (dizer|informar|falar)",
    "(voce|o senhor|a senhora) (faria|me faria|pode fazer|poderia fazer) (a gentileza|o favor|um favor|o obsequio) (de|e)",
    "[eu] (preferia|preferiria|agradeceria se) [que] voce",
    "(se nao der|se nao for dar) muito trabalho", "[ah] antes que eu me esqueca", "deixa eu ver",
    "(ve|veja|olha|confere|checa) [ai] se", "(na verdade|alias|pensando bem|melhor)", "(voce|ce) ?", "deixa para la",
    "(nossa|caramba|puxa|eita|poxa|ih|vixe|desculpa|desculpe|espera|espera ai|perai|pera|um momento|so um momento|enfim|pois e)",
    "(voce|tu) (pode|poderia|consegue|podia|pode por favor|poderia por favor|conseguiria)",
    "(pode|poderia|consegue|podia|podes|da para|daria para|sera que voce pode|sera que voce poderia|sera que pode|sera que " +
      "da para) [voce] [por favor|por gentileza|me fazer o favor de]",
    "(ei|oi|ola|ok|ta bom|entao|bom|bem|agora|e|ah|hum|ai|opa|certo|beleza|legal|escuta|olha|vai|valeu|sim|faz favor|" +
      "tambem|rapidinho|rapido|bom dia|boa tarde|boa noite|alo|ne|tipo|viu|so|faz o seguinte|seguinte|por acaso|meu bem|" +
      "querida|querido|amigo|amiga|cara|mano|oxe|uai|ue|perfeito|otimo|show|pronto|dai|minha filha|meu filho|meu amor|amor|gata|meu " +
      "anjo|minha querida|meu querido|minha amiga|meu amigo)",
    "(esta|isso esta|voce esta|o som esta|o volume esta|a musica esta|ficou|estou achando) [muito|bem|tao|meio|um pouco] " +
      "(alto|alta|baixo|" +
      "baixa|barulhento) [demais]",
    "(o|a|os|as|meu|minha|meus|minhas) (bebe|nenem|crianca|criancas|vizinho|vizinhos|filho|filha|mae) (esta|estao) " +
      "(dormindo|reclamando)",
    "(estou|eu estou|eu vou|vou|a gente vai|estamos|ja vou|preciso|tenho que) (saindo|indo|indo embora|sair|embora|ir|ir " +
      "embora|de saida|no telefone|em reuniao|cozinhando|ocupado|ocupada|dormir|indo dormir|me deitar|almocar)",
    "nao (estou|consigo|da para) (ouvindo|ouvir|escutar|escutando) [nada|direito|voce|a musica|o som]",
    "(o|a) telefone (esta tocando|tocou)", "(voce|se) (pode|puder|poderia)", "(gostaria|eu gostaria) de",
    "(sera que|que tal) [voce] [me]", "(teria|tem) como [voce]",
    "(eu quero|eu queria|quero|queria|gostaria|eu gostaria|preciso|eu preciso) que (voce|tu)",
    "(eu quero|eu queria|quero|queria|gostaria de|eu gostaria de|preciso|eu preciso|eu gostaria|preciso de)",
    "(faz|faca|me faz|me faca) (o|um|esse|aquele) favor [de|e]",
    "(me diz|me diga|me fala|me fale|me informa|me informe|me conta|me conte|diga me|diz|diga|fala|fale)",
    "(voce sabe|sabe|sabe me dizer|voce sabe me dizer|saberia me dizer|pode me dizer|poderia me dizer|consegue me dizer|" +
      "gostaria de saber|quero saber|queria saber|eu quero saber|eu queria saber|preciso saber)",
    "(tem como|teria como|e possivel|seria possivel|da pra|tem jeito de) [voce]", "me ajuda a", "vamos", "se puder", "se der",
    "nao se importa de", "(eu) queria", "estou querendo", "(me deixa|deixa eu) (dormir|descansar)", "[eu] (ia adorar|ia gostar|ia amar|adoraria|amaria|seria otimo|seria bom) se (voce|tu|)", "se voce puder", "se nao for incomodo", "eu", "me faz um favor",
    "(voce|tu) (pode|poderia|consegue|podia|conseguiria|nao pode|nao poderia) [por favor|por gentileza|so|rapidinho|tambem|ai]",
    "(sera que|por acaso) (voce|tu|da|daria|tem como) [pode|poderia|consegue|conseguiria|podia|para]",
    "(tem|teria|tinha|da|daria|dava) (como|jeito de|para|jeito) [voce] [so]", "(nao|) (se importa|se importaria|te importa) (de|em)",
    "(voce|) (se importa|se importaria|te incomoda) (de|em|se)",
    "(faz|faca|me faz|me faca|da para fazer) (o favor|um favor|a gentileza|essa gentileza|esse favor|a bondade|uma gentileza) [de|para " +
      "mim|e|ai]", "(teria|tenha) a (gentileza|bondade) de",
    "(eu|) (gostaria|queria|quero|preciso|precisava|adoraria|ia querer|estou precisando|estou querendo|tava querendo) (que (voce|tu)|de|" +
      ")", "(antes que eu esqueca|ah e|so mais uma coisa|mais uma coisa|uma coisa|outra coisa|escuta aqui|olha so|deixa eu te pedir)",
    "(ve|veja|olha) (se|ai se) (da|consegue|pode) [para]", "(ve|veja) (para mim|ai) [se]",
    "(pode|poderia|consegue) (ir|me fazer o favor de|so|tambem|ai|por favor)", "(assistente|computador|meu caro|minha cara|chefe|" +
      "parceiro|galera|gente|menina|moca|moco)",
    "(tem|faz) ideia de", "(voce|) (tem ideia|faz ideia) (de|)", "(me ajuda|me ajude|ajuda) (a|ai a)",
    "(vamos|bora|hora de|ta na hora de|que tal|e se voce|aproveita e|aproveitando)", "(nao esquece|nao esqueca|lembra|lembre) de",
    "trata de", "por via das duvidas",
    "(fiquei|estou) (curioso|curiosa|na duvida)", "(preciso|quero|queria|gostaria de) (saber|ver|entender|descobrir)",
    "me (tira|tire) uma duvida", "seria (possivel|bom|otimo) [voce]", "(acho que|entao|bom) (voce|) (pode|podia|poderia)",
  ],
  polite: [
    "[eu] (fico|ficaria) [muito] (grato|grata|agradecido|agradecida)",
    "por favor", "por gentileza", "(obrigado|obrigada|valeu|muito obrigado|muito obrigada|uai|guria|guri|tche|visse)", "se puder", "se der", "faz favor",
    "se voce puder",
    "(por favorzinho|faz favor|fazendo favor|se nao se importar|brigado|brigada|agradeco|grato|grata|meu bem|querida|" +
      "querido|amigo|amiga|mano|cara)",
  ],
  after: [
    "para mim", "para nos", "(esta|esta bom|esta certo|pode ser) ?", "ou nao [coloquei|botei|marquei|tenho|esta]", "(agora|agora mesmo|ja|imediatamente|rapidinho|rapido|logo)",
    "(vai|anda|voce pode|pode ser|ta|ta bom|ok|tudo bem|viu|ne|beleza|pode|sim|entao|ai|la)", "se possivel",
    "se nao for incomodo", "(precisa mais nao|nao precisa mais|nao preciso mais)", "ou (caiu|parou|esta fora|nao)", "de novo", "tambem", "para (eu|a gente) (ver|ouvir|usar|ler)",
    "(que|porque|pois|que eu|porque eu) (estou|eu estou|estamos|vou|eu vou|preciso|tenho que) (saindo|indo|no telefone|em " +
      "reuniao|sair|ir|dormir|cozinhando|ocupado|ocupada|de saida|trabalhando|estudando|atender o telefone|falando no " +
      "telefone)",
    "(que|porque|pois) (eu|) nao (estou|consigo|da para) (ouvindo|ouvir|escutar|escutando|te ouvir|te ouvindo) [nada|" +
      "direito|voce|a musica|o som|bem]",
    "(que|porque|pois) (eu|) nao (te|) (ouco|escuto|ouvi|escutei) [nada|direito|bem]",
    "(que|porque|pois) (esta|isso esta|o som esta|o volume esta) [muito|bem|tao|meio] (alto|baixo) [demais]",
    "(que|porque) (o|a|os|as|meu|minha|meus|minhas) (bebe|nenem|crianca|criancas|vizinho|vizinhos|filho|filha|mae) (esta|" +
      "estao) (dormindo|reclamando)",
    "(so|um instante|um momento|hein|por enquanto|por ora|de uma vez|sem demora|faz favor|por acaso|afinal|mesmo|certo|computador|" +
      "assistente|chefe|parceiro|gente)", "quando (puder|der|voce puder)", "se (voce|) (conseguir|quiser|der|puder|nao se importar)",
    "(antes que eu esqueca|se nao for pedir muito|se nao for incomodar|se for possivel|para eu nao esquecer|desde ja|por um instante|" +
      "por um momento|por um tempo|um pouquinho|um minutinho|um segundo)", "(voce sabe|sabe me dizer|voce sabe me dizer|me diz|me fala|" +
      "pode me dizer|ta bem|esta bem|esta bom|combinado)",
    "(eu|) nao (preciso|vou precisar|quero) mais [dele|dela|disso|deles|delas]",
  ],
  shorthand: portugueseShorthand,
  requests: [...portugueseChanges, ...portugueseTimers, ...portugueseNotes, ...portugueseSound, ...portugueseDesktop, ...portugueseFacts, ...portugueseMemory],
};
