// What the second reading takes for a request: the concepts that have to be there, and those that may be.

import type { MeaningName } from "./meanings.ts";

export interface Rule {
  meaning: MeaningName;
  /** Each has to be there, or one of those between "|". */
  needs: readonly string[];
  may: readonly string[];
  /** The slot that takes the words that stand for nothing else. */
  name?: string;
  /** The noun before which a name may stand. */
  named?: string;
  /** It only tells something: the words of a question change nothing. */
  isAsked?: boolean;
}

const doing = (meaning: MeaningName, needs: readonly string[], may: readonly string[] = [], more: Partial<Rule> = {}): Rule => ({
  meaning, needs, may, ...more,
});
const telling = (meaning: MeaningName, needs: readonly string[], may: readonly string[] = [], more: Partial<Rule> = {}): Rule => ({
  meaning, needs, may, isAsked: true, ...more,
});
const named = (noun: string): Partial<Rule> => ({ name: "name", named: noun });

/** The first that takes a sentence is meant. */
export const rules: readonly Rule[] = [
  doing("convert", ["measure", "unit", "reckon"], ["asking", "conversion"]),
  doing("cancelTimers", ["off", "timers", "all"], ["running"]),
  doing("cancelAlarms", ["off", "alarms", "all"], ["running"]),
  doing("cancelReminders", ["off", "reminders", "all"], ["running"]),
  doing("cancelTimer", ["off", "timer"], ["duration", "running"], named("timer")),
  doing("cancelAlarm", ["off", "alarm"], ["moment", "day", "running"]),
  doing("cancelReminder", ["off", "reminder"], ["running"]),
  doing("snooze", ["snooze"], ["duration", "alarm", "timer", "more"]),
  doing("snooze", ["sleep", "duration|more"], ["more", "duration"]),
  doing("setTimer", ["timer|alerts", "duration"], ["set", "timer", "alerts", "after"], named("timer")),
  doing("wake", ["wake", "moment"], ["set", "alarm", "wake", "early"]),
  doing("wake", ["wake", "duration"], ["set", "alarm", "after"]),
  doing("wake", ["must", "wake", "moment", "alarm"], ["set", "so", "early", "sleep"]),
  doing("setAlarm", ["alarm", "moment"], ["set", "wake", "alerts", "early"]),
  doing("setAlarm", ["alarm", "duration"], ["set", "after", "alerts"]),
  doing("unmuteSound", ["unmute"], ["sound", "change", "it", "back", "computer"]),
  doing("unmuteSound", ["mute", "out|cutoff"], ["sound", "change", "it", "back", "computer", "out", "cutoff"]),
  doing("muteSound", ["mute|silent", "sound|computer|it|everything"], ["change", "mute", "silent"]),
  doing("muteSound", ["mute"], ["change"]),
  doing("muteSound", ["cutoff", "sound"], ["all", "computer"]),
  doing("unmuteSound", ["on|back", "sound"], ["change", "back", "on", "set", "computer"]),
  doing("setVoice", ["voice|speak", "level"], ["change", "up", "down", "louder", "quieter", "percent", "volume"]),
  doing("voiceLouder", ["voice|speak", "up|louder"], ["change", "turn", "bit", "number", "percent", "volume", "speak", "voice", "up"]),
  doing("voiceQuieter", ["voice|speak", "down|quieter"], ["change", "turn", "bit", "number", "percent", "volume", "speak", "voice", "down"]),
  doing("loudest", ["volume|it|sound|music", "most"], ["change", "turn", "up", "louder", "set"]),
  doing("softest", ["volume|it|sound|music", "least"], ["change", "turn", "down", "quieter", "set"]),
  doing("half", ["volume|sound|music", "half"], ["change", "turn", "up", "down", "louder", "quieter", "set"]),
  doing("setVolume", ["volume|sound|music", "level"], ["change", "turn", "set", "up", "down", "louder", "quieter", "percent", "computer"]),
  doing("setVolume", ["it", "level", "percent|turn"], ["change", "turn", "up", "down", "louder", "quieter", "percent"]),
  doing("setVolume", ["volume|sound", "number"], ["change", "set", "percent"]),
  doing("louder", ["volume|sound|music", "up|louder"], ["change", "turn", "bit", "number", "percent", "up", "computer"]),
  doing("quieter", ["volume|sound|music", "down|quieter"], ["change", "turn", "bit", "number", "percent", "down", "computer"]),
  doing("louder", ["it", "louder"], ["change", "turn", "bit", "number", "percent", "up"]),
  doing("quieter", ["it", "quieter"], ["change", "turn", "bit", "number", "percent", "down"]),
  doing("louder", ["it|bit", "up", "turn"], ["bit", "number", "percent", "it"]),
  doing("quieter", ["it|bit", "down", "turn"], ["bit", "number", "percent", "it"]),
  doing("louder", ["louder", "bit"], ["change"]),
  doing("quieter", ["quieter", "bit"], ["change"]),
  doing("previous", ["previous", "song"], ["play", "change", "again"]),
  doing("next", ["next", "song"], ["play", "change", "skip"]),
  doing("next", ["skip"], ["song", "next", "it"]),
  doing("pause", ["pause|pausing", "music|song"], ["awhile"]),
  doing("pause", ["pause", "wireless"], ["awhile"]),
  doing("pause", ["pausing"], ["awhile", "it"]),
  doing("play", ["play", "music|song"], ["again", "back", "some"]),
  doing("play", ["on", "music"], ["again", "back", "change", "some"]),
  doing("lock", ["lock", "screen|computer"], ["change"]),
  doing("screenshot", ["shot"], ["take", "screen", "whole", "set"]),
  doing("screenshot", ["take", "picture", "screen"], ["whole"]),
  telling("tellPending", ["ask|list|clock", "alarm|alarms", "timer|timers"], ["running", "all", "pending", "reminder", "set"]),
  telling("tellTimers", ["howlong", "left"], ["timer", "running"], named("timer")),
  telling("tellTimers", ["ask|list|clock", "timer"], ["running", "left", "howlong", "all", "pending", "goes"], named("timer")),
  telling("tellAlarms", ["ask|list|clock", "alarm"], ["running", "set", "next", "moment", "day", "howlong", "left", "all", "pending", "goes", "wake"]),
  telling("tellAlarms", ["clock|when", "wake"], ["moment", "day", "alarm"]),
  telling("tellReminders", ["ask|list|clock", "reminder"], ["running", "next", "day", "moment", "left", "all", "pending"]),
  telling("tellPending", ["ask|list|which", "pending"], ["all", "running", "which"]),
  telling("readNotes", ["list|ask", "notes"], ["all", "last", "noted"]),
  telling("tellVolume", ["ask|list", "volume"], ["loud", "running"]),
  telling("tellPlaying", ["which", "song"], ["playing", "sings", "author", "called"]),
  telling("tellPlaying", ["called", "song|playing"], ["music", "which", "playing"]),
  telling("tellPlaying", ["which", "playing|sings"], ["music", "called"]),
  telling("battery", ["battery", "quantity|ask|list"], ["left", "free", "percent", "computer", "charging", "howlong", "quantity"]),
  telling("battery", ["charging", "yesno"], ["computer", "battery"]),
  telling("disk", ["disk|space", "quantity|free|full"], ["disk", "space", "left", "free", "full", "computer", "quantity", "list"]),
  telling("memory", ["ram", "quantity|free|full"], ["left", "free", "full", "computer", "quantity", "list"]),
  telling("network", ["network", "which"], ["connected", "called", "computer", "list"]),
  telling("network", ["network|internet", "connected|yesno"], ["computer", "connected"]),
];
