// The phrases by which English asks for what is on the desktop.

import type { Request } from "./meanings.ts";

export const englishDesktop: readonly Request[] = [
  [
    "lock",
    [
      "lock [<the>] <screen>", "lock (me out|it|everything|up) [of the <screen>]", "lock (up|down) [<the>] <screen>",
      "lock [<the>] <screen> (up|down|now)", "(get|have) <the> <screen> locked", "lock it (up|down)",
      "(go to|show|bring up) the lock screen", "screen lock", "lock screen",
      "(turn on|activate|start) the (lock screen|screen lock)", "put the (computer|screen) on lock",
      "i want [<the>] <screen> locked",
    ],
  ],
  [
    "screenshot",
    [
      "(take|make|grab|capture|get|do|snap|save|shoot|create|give me) [me] [a|the|one|another] (screenshot|screen shot|" +
        "screen capture|screengrab|screen grab|snapshot of the screen|picture of the screen|picture of my screen|screenshot " +
        "of the screen|screenshot of my screen|shot of the screen|snapshot of my screen|screenshot of this|capture of the " +
        "screen|capture of my screen|photo of the screen|image of the screen|screenshot of the desktop|screenshot of my " +
        "desktop|print screen)",
      "(take|make|grab|get|do|snap|save) [me] [a|another|one] (screenshot|screen shot|screengrab|screen grab) of (this|that|my|the) (page|" +
        "recipe|window|map|photo|picture|video|email|message|chat|article|ticket|receipt|error|site|website|map|chart|table|slide)",
      "(screenshot|screen shot|print screen|screen capture) [this|the screen|my screen|it]",
      "capture (what is on|all of|the whole|the entire|everything on) [<the>] (screen|display|desktop)",
      "capture [<the>] (screen|display|desktop)",
      "(screenshot|screen shot|screengrab|screen grab|screen capture) (please|of this|of that|of it|that|time|of what i " +
        "see|of everything|of all of this|of the window|of this page)",
      "(take|make|grab|get|do|snap|save|shoot|create) [me] [a|another|one] (screenshot|screen shot|screengrab|screen grab) " +
        "(of|with) (what is on [<the>] screen|everything|all of it|this|this page|this window|the window|the page|the whole " +
        "screen|my whole screen|the entire screen|that|what you see|my desktop)",
      "(take|make|grab|get|snap|save|create) [me] (a|an) (picture|photo|image|shot|snap|grab|snapshot) of [<the>] [whole|" +
        "entire] (screen|desktop|display)",
      "print [<the>] screen", "snap [<the>] screen", "(take|save) [a] picture of [what is on] [<the>] (screen|desktop)",
    ],
  ],
  [
    "openFolder",
    [
      "(look|have a look) in [<whose>] {text} (folder|directory) [open it]", "(show me|see|let me see|tell me|can i see) what is in [<whose>] {text} (folder|directory)", "(can|could|may) i see [<whose>] {text} (folder|directory)",
      "(open|show|open up|bring up|go to|pull up|launch|view|display|browse|take me to|see) [me] [<whose>] {text} (folder|" +
        "directory)",
      "(open|show|go to) [me] [<whose>] (folder|directory) [called|named] {text}",
      "(show|open) [me] what is in [<whose>] {text} (folder|directory)",
      "(open|show|bring up|go to|view|browse) [me] (the|a|my) (folder|directory) (with|for|of|containing|that has|where i " +
        "keep|where i have|called|named) [all] [of] [<whose>] {text} [in it]",
      "let me (see|into|look into|look at|browse) [<whose>] {text} (folder|directory)",
      "(take me|go|jump|get me) (to|into) [<whose>] {text} (folder|directory)", "what is in [<whose>] {text} (folder|directory)",
      "open up the folder {text}", "i (want|need|would like) (to see|to open|to look at) [<whose>] {text} (folder|directory)",
      "(open|pull up|show|find) [me] where [all] [<whose>] {text} (are|is|is kept|are kept|is saved|are saved)",
      "(open|show|show me) (my|the) (files in|contents of) {text}",
    ],
  ],
  [
    "openKnownFolder",
    [
      "(open|open up|show|show me|go to|take me to|bring up|let me see|view|browse|pull up|find|see|look at|i want to see|i would like to " +
        "see|can i see|could i see) [all] [of] [<whose>] {few:text}",
    ],
  ],
  [
    "openKnownApplication",
    [
      "(i need|i want|i would like|i could use|we need|get|get me|fetch|fetch me|give me|show|show me|bring|bring me|put up|let me use|let me have|let us " +
        "see|fetch up|turn on|switch on|use|can i have|could i have|could i get|can i get|take me to|go to|switch to) [<whose>|a] {few:text} [up|app]",
    ],
  ],
  [
    "openAddress",
    [
      "(open|go to|visit|browse to|navigate to|show me|take me to|bring up|load|launch|pull up|surf to|head to|open up) " +
        "[the] [website|site|web page|page|web site|address|webpage|url] {text} [website|page|site] [in the browser|in my " +
        "browser]",
      "open the (website|site|page) {text}", "<open> [up] [the|my|a] [web] browser (at|on|to|with) {text}",
      "(i want|i would like|i need) (to go to|to visit|to see|to open) [the] [website|site|page] {text}",
      "(get|bring|take) me (to|onto|on) [the] [website|site|page] {text}",
      "(open|show|load|pull up|bring up|get) [me] {text} (in|with|on) (the|my|a) (browser|web browser|internet|web)",
      "(type|enter|put in) {text} in (the|my) browser",
      "(call up|pop open|fetch|check|check out) [the] [website|site|page] {text}",
      "{text} (website|site|homepage|home page|web page)",
    ],
  ],
  [
    "open",
    [
      "<open> [up] [<whose>] [app|application|program] {text} [app|application|program]",
      "i (need|want|would like|have|am going) [to use|to open|to work in|to work with|to work on] [<whose>] {few:text} [so|please] " +
        "(open|launch|start|fire) (it|that) [up]",
      "(pop|get|pull|bring|load|fire|start|boot) [<whose>] {few:text} (open|up|running|going|started)",
      "(get|have) [<whose>] {few:text} (open|opened|started|running)",
      "(open|launch|start) (an app|a program|the app|the program) (called|named) {text}",
      "i (want|need|would like) <whose> {few:text} (open|opened|started|running|launched)",
      "i (want|need|would like) [<whose>] {few:text} (app|application|program)",
      "<open> [up] [<whose>] (app|application|program) [called|named] {text}",
      "(start|run|load|execute) [the|my] [app|application|program] {few:text} [app|application|program]",
      "(show me|bring me|get me|take me to|switch to|go to) [<whose>] {few:text} (app|application|program)",
      "i (want|need|would like) to (use|open|launch|start) [<whose>] {few:text}",
    ],
  ],
];
