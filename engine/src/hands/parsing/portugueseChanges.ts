// The phrases by which Portuguese asks for another time for what is set.

import type { Request } from "./meanings.ts";

export const portugueseChanges: readonly Request[] = [
  [
    "lengthenTimer",
    [
      // "Põe três minutos no timer" sets one.
      "(coloca|bota|poe|adiciona|da|deixa|mete|quero|preciso de) <extra> (no|ao|nesse|neste|para o|em) [meu] <timer> [<of> {few:name}]",
      "(acrescenta|soma|aumenta) (<extra>|{duration}) (no|ao|nesse|neste|para o|em) [meu] <timer> [<of> {few:name}]",
      "(aumenta|estende|prolonga|estica|acrescenta) [<the>] <timer> [<of> {few:name}] (em|por|de|com) (<extra>|{duration})",
      "<extra> (no|ao|nesse|neste|para o) [meu] <timer> [<of> {few:name}]",
      "deixa [<the>] <timer> [<of> {few:name}] {duration} mais (longo|comprido)",
    ],
  ],
  [
    "shortenTimer",
    [
      "(tira|remove|corta|diminui|reduz|desconta|subtrai) {duration} (do|desse|deste) [meu] <timer> [<of> {few:name}]",
      "(diminui|reduz|encurta|corta) [<the>] <timer> [<of> {few:name}] (em|por|de) {duration}",
    ],
  ],
  [
    "changeTimer",
    [
      "<retime> [<the>] <timer> de {number} (para|por) {duration}",
      "<retime> [<the>] <timer> [<of> {few:name}] [de {duration:was}] (para|por) {duration}",
      "<retime> [<the>] <timer> de {duration:was} (para|por) {duration}",
    ],
  ],
  [
    "alarmLater",
    [
      "(empurra|joga|passa|muda|atrasa) [<the>] <alarm> [(das|da|de) {moment:from}] [em|por] {duration} [para (frente|mais tarde|depois)]",
      "(coloca|bota|poe|deixa|quero|queria) [<the>] <alarm> [(de|das|da) {day:on}] {duration} (mais tarde|depois|para frente)",
    ],
  ],
  [
    "alarmEarlier",
    [
      "(adianta|antecipa) [<the>] <alarm> [(das|da|de) {moment:from}] [em|por] {duration}",
      "(coloca|bota|poe|deixa|passa|muda|quero|queria) [<the>] <alarm> [(de|das|da) {day:on}] {duration} (mais cedo|antes|para tras)",
    ],
  ],
  [
    "changeAlarm",
    [
      "(<retime>|adianta|antecipa|adia|empurra|atrasa) [<the>] <alarm> [(das|da|de) {moment:from}] [para|la para] {moment}",
      "(<retime>|adianta|antecipa|adia|empurra|atrasa) [<the>] <alarm> (das|da|de) {number:hour} para {moment}",
      "(<retime>|adianta|antecipa|adia|empurra|atrasa) [<the>] <alarm> de {day:on} para {moment}",
      "<retime> (a hora|o horario) (do|desse|deste) [meu] <alarm> para {moment}",
    ],
  ],
  [
    "changeReminder",
    [
      "(<retime>|adianta|antecipa|adia|empurra) [<the>] lembrete (de|do|da|sobre|para) {text:about} para {moment}",
      "(<retime>|adianta|antecipa|adia|empurra) [<the>] lembrete [para] {moment}",
    ],
  ],
];
