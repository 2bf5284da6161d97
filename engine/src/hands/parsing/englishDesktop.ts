// The phrases by which English asks for what is on the desktop.

import type { Request } from "./meanings.ts";

export const englishDesktop: readonly Request[] = [
  [
    "lock",
    [
      "lock [<the>] <screen>", "lock (me out|it|everything) [of the <screen>]", "lock screen",
      "(turn on|activate|start) the (lock screen|screen lock)", "put the (computer|screen) on lock", "i want [<the>] <screen> locked",
    ],
  ],
  [
    "screenshot",
    [
      "(take|make|grab|capture|get|do|snap|save|shoot|create|give me) [me] [a|the|one|another] (screenshot|screen shot|screen " +
        "capture|screengrab|screen grab|snapshot of the screen|picture of the screen|picture of my screen|screenshot of the screen|" +
        "screenshot of my screen|shot of the screen|snapshot of my screen|screenshot of this|capture of the screen|capture of my " +
        "screen|photo of the screen|image of the screen|screenshot of the desktop|screenshot of my desktop|print screen)",
      "(screenshot|screen shot|print screen|screen capture) [this|the screen|my screen|it]", "capture [<the>] (screen|display|desktop)",
      "print [<the>] screen", "snap [<the>] screen", "(take|save) [a] picture of [what is on] [<the>] (screen|desktop)",
    ],
  ],
  [
    "openFolder",
    [
      "(open|show|open up|bring up|go to|pull up|launch|view|display|browse|take me to|see) [me] [<whose>] {text} (folder|directory)",
      "(open|show|go to) [me] [<whose>] (folder|directory) [called|named] {text}",
      "(show|open) [me] what is in [<whose>] {text} (folder|directory)", "(open|show|show me) (my|the) (files in|contents of) {text}",
    ],
  ],
  [
    "openKnownFolder",
    [
      "(open|open up|show|show me|go to|take me to|bring up) [<whose>] {few:text}",
    ],
  ],
  [
    "openAddress",
    [
      "(open|go to|visit|browse to|navigate to|show me|take me to|bring up|load|launch|pull up|surf to|head to|open up) [the] " +
        "[website|site|web page|page|web site|address|webpage|url] {text} [website|page|site] [in the browser|in my browser]",
      "open the (website|site|page) {text}",
    ],
  ],
  [
    "open",
    [
      "<open> [up] [<whose>] [app|application|program] {text} [app|application|program]",
      "<open> [up] [<whose>] (app|application|program) [called|named] {text}",
      "(start|run|load|execute) [the|my] [app|application|program] {few:text} [app|application|program]",
      "(show me|bring me|get me|take me to|switch to|go to) [<whose>] {few:text} (app|application|program)",
      "i (want|need|would like) to (use|open|launch|start) [<whose>] {few:text}",
    ],
  ],
];
