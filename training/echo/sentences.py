"""What the synthetic voices say, by language as espeak-ng names it."""

SENTENCES = {
    "en-us": [
        "The parcel will be delivered between nine and eleven on Thursday morning.",
        "I have put the three longest files into a folder of their own.",
        "No.", "Wait a moment.", "Could you read that again, please?",
        "Two of the tests failed because the disk was full, and I have run them again.",
        "Which of the two would you rather keep?", "Yes, that one.", "Stop it there.",
        "She said that the garden needs water, but the weather should turn on Sunday.",
        "What did they answer?", "Open the second one.", "Hello, are you there?",
        "There were forty seven changes since the last time you asked me about it.",
    ],
    "en-gb": [
        "The kettle is on, and the shop round the corner closes at half past five.",
        "Perhaps we should try it the other way round.", "Quite right.", "Not now.",
        "I wrote to the library about the missing pages, and they have not replied.",
        "Thank you, that is enough.", "Louder, please.", "Where were we?",
        "Every other chapter begins with a map, which I find rather helpful.",
    ],
    "pt-br": [
        "A reunião foi transferida para a próxima terça-feira, às duas da tarde.",
        "Não, espera.", "Pode repetir, por favor?", "Abre a janela da sala.",
        "Encontrei três arquivos com o mesmo nome e guardei apenas o mais recente.",
        "Qual é a previsão do tempo para amanhã?", "Sim.", "Para.", "Continua de onde parou.",
        "O trem das sete e meia está atrasado, mas o das oito ainda sai na hora certa.",
        "Manda uma mensagem para o meu irmão dizendo que eu chego mais tarde.",
    ],
    "es": [
        "La biblioteca cierra a las ocho, pero los sábados abre desde muy temprano.",
        "Espera un momento.", "No.", "¿Qué hora es?", "Lee el último mensaje otra vez.",
        "He guardado las fotografías del viaje en la carpeta que me indicaste ayer.",
        "Baja el volumen.", "Está bien, sigue.",
    ],
    "fr": [
        "Le magasin ferme à dix-neuf heures, sauf le vendredi où il reste ouvert plus tard.",
        "Attends un peu.", "Oui.", "Quelle heure est-il?", "Ferme la porte de la cuisine.",
        "J'ai trouvé deux erreurs dans le dernier chapitre et je les ai corrigées.",
        "Non, pas celui-là.", "Recommence depuis le début.",
    ],
    "de": [
        "Der Zug nach Hause fährt heute von einem anderen Gleis als sonst.",
        "Moment mal.", "Nein.", "Wie spät ist es jetzt?", "Lies mir die erste Nachricht vor.",
        "Ich habe die Rechnungen nach dem Datum geordnet und die doppelten gelöscht.",
        "Mach das Licht aus.", "Ja, genau so.",
    ],
    "it": [
        "La riunione di domani comincia alle nove e un quarto, non alle dieci.",
        "Aspetta.", "Sì.", "Che tempo fa oggi?", "Apri la finestra della camera.",
        "Ho scritto un breve riassunto della discussione e l'ho messo con gli altri.",
    ],
    "pl": [
        "Spotkanie zostało przesunięte na środę, bo większa sala była zajęta.",
        "Poczekaj chwilę.", "Nie.", "Która jest godzina?", "Przeczytaj to jeszcze raz.",
    ],
    "ru": [
        "Завтра после обеда обещают дождь, поэтому лучше взять с собой зонт.",
        "Подожди.", "Нет.", "Который час?", "Прочитай последнее сообщение.",
    ],
    "cmn": ["明天下午可能会下雨，出门的时候最好带一把伞。", "等一下。", "现在几点了？", "请再说一遍。"],
}
