// The voice loop: knows what the agent is doing, and carries out each command and each utterance.

import type { Heard, LoopState, Timings } from "../base/protocol.ts";
import { Ears, type HeardSpeech } from "../hearing/ears.ts";
import { Draft } from "./draft.ts";
import { HeardLately } from "./heardLately.ts";
import { commandIn, interpret, type Housekeeping, type Interpretation } from "./interpretation.ts";
import { ListeningWindow } from "./listeningWindow.ts";
import type { LoopPorts } from "./ports.ts";
import { Tellings } from "./tellings.ts";
import { Turn, type Question } from "./turn.ts";

/** The chime must not be taken for speech. */
const chimeMs = 400;

export class Loop {
  readonly ears: Ears;
  readonly #draft: Draft;
  readonly #window: ListeningWindow;
  readonly #tellings: Tellings;
  #turn: Turn | undefined;
  #isSampling = false;
  #isMuted = false;
  readonly #heard = new HeardLately();
  #timings: Timings | undefined;
  #spokenLately = "";

  constructor(private readonly ports: LoopPorts) {
    const { clock, settings, changed } = ports;
    this.#draft = new Draft(clock, () => settings().draftMaxAgeMs, changed);
    this.#window = new ListeningWindow(clock, changed);
    this.#tellings = new Tellings({
      clock,
      isQuiet: () => !this.#turn && !this.#isSampling && !this.ears.isBusy,
      isMuted: () => this.#isMuted,
      chime: () => this.#chime(),
      say: (sentences) => void this.#tell(sentences),
    });
    this.ears = new Ears(ports, {
      began: (overlapsSpeech) => this.#somebodySpeaks(overlapsSpeech),
      heard: (speech) => this.#take(speech),
      captioned: (text) => this.#showCaption(text),
      changed,
      context: () => ({ isWindowOpen: this.#window.isOpen, isMuted: this.#isMuted }),
    });
  }

  get state(): LoopState {
    if (this.#turn) return this.#turn.phase;
    if (this.#isSampling) return "speaking";
    if (this.#isMuted) return "muted";
    if (this.ears.isBusy) return "hearing";
    if (this.#draft.isOpen) return "drafting";
    // A user who asks it to listen sees why it cannot.
    if (this.#window.isOpen) return this.ears.isMicDead ? "muted" : "listening";
    return "waiting";
  }

  get isMuted(): boolean {
    return this.#isMuted;
  }

  get heard(): Heard[] {
    return this.ears.isBusy ? this.#heard.withCaption : this.#heard.entries;
  }

  get draft(): Draft["entries"] {
    return this.#draft.entries;
  }

  get timings(): Timings | undefined {
    return this.#timings;
  }

  listen(): void {
    this.#endTurn();
    this.#isMuted = false;
    this.#summon();
    this.ports.changed();
  }

  /** Ends whatever goes on. The draft stays. */
  stop(): void {
    this.ports.brain.refuse();
    this.ports.stopped();
    this.#tellings.clear();
    this.#endTurn();
    this.#window.close();
    this.ears.abandon();
    this.ports.changed();
  }

  /** Muting takes back what was asked leave for: it would be another moment in which a yes is heard. */
  toggleMute(): void {
    this.#isMuted = !this.#isMuted;
    if (this.#isMuted) {
      this.ports.brain.refuse();
      this.#window.close();
      this.ears.forget();
    }
    this.ports.changed();
  }

  newConversation(): void {
    this.ports.brain.refuse();
    this.#endTurn();
    this.#window.close();
    this.ports.conversations.begin();
    this.#timings = undefined;
    this.ports.changed();
    this.ports.turnEnded();
  }

  /** Takes a typed request: what stops the agent when it is said stops it when it is typed. */
  say(text: string): void {
    const command = commandIn(text, this.ports.settings().wakeWords, this.ports.phrases);
    if (command) return this.#command(command);
    this.#ask({ text: text.toWellFormed(), isSpoken: false, askedAt: this.ports.clock.now() });
  }

  /** Says something that nobody has asked for, when no turn is in progress and nobody speaks. */
  tell(sentence: string): void {
    this.#tellings.add(sentence);
  }

  /** Says that a request was too long to be taken. */
  refuseLength(): void {
    this.#endTurn();
    void this.#announce(this.ports.phrases.tooLong);
  }

  act(): void {
    if (this.#draft.isOpen) this.#ask({ text: this.#draft.take(), isSpoken: false, askedAt: this.ports.clock.now() });
  }

  clearDraft(): void {
    this.#draft.clear();
    this.ports.changed();
  }

  /** Speaks a sample of the voice that is set. */
  sample(): void {
    this.#endTurn();
    void this.#announce(this.ports.phrases.sample(this.ports.settings().voiceName));
  }

  /** Takes note that a sentence of the agent begins to be heard. */
  sentenceStarted(sentence: string): void {
    this.#spokenLately = `${this.#spokenLately} ${sentence}`.slice(-2_000);
    this.#turn?.sentenceStarted();
    if (this.#turn?.timings) this.#timings = this.#turn.timings;
    this.ports.changed();
  }

  settingsChanged(): void {
    this.#draft.dropOld();
    this.ears.settingsChanged();
  }

  #somebodySpeaks(overlapsSpeech: boolean): void {
    this.#heard.dropCaption();
    if (overlapsSpeech && (this.#turn || this.#isSampling)) {
      this.#endTurn();
      this.ears.hasInterrupted = true;
    }
    this.ports.changed();
  }

  #take(speech: HeardSpeech): void {
    const { settings, phrases } = this.ports;
    if (this.#isMuted) return this.#note(speech, { action: "muted", reason: phrases.reasons.muted });
    const { wakeWords, actionPhrases, isDirectedOn, isDraftOn } = settings();
    const decision = interpret(speech, {
      wakeWords,
      actionPhrases,
      isDirected: isDirectedOn,
      isDraftOn,
      isDraftOpen: this.#draft.isOpen,
      isWindowOpen: speech.isWindowOpen,
      overlapsSpeech: speech.overlapsSpeech,
      isSurelySomebody: speech.isSurelySomebody,
      hasInterrupted: speech.hasInterrupted,
      isThinking: this.#turn !== undefined,
      spoken: this.#spokenLately,
      phrases,
    });
    this.#note(speech, decision);
    this.#carryOut(speech, decision);
    this.ports.changed();
  }

  #carryOut(speech: HeardSpeech, { action, command, text = "" }: Interpretation): void {
    const question = (words: string): Question => ({
      text: words,
      isSpoken: true,
      askedAt: speech.endedAt,
      transcribeMs: speech.transcribeMs,
    });
    switch (command) {
      case "draft":
        this.#window.close();
        return this.#draft.add(text);
      case "runDraft":
        if (text !== "") this.#draft.add(text);
        return this.#ask(question(this.#draft.take()));
      case "ask":
        return this.#ask(question(text));
      default:
        return this.#command(command);
      case undefined:
        // It was called, or silenced without a request, and listens for what follows.
        if (action === "summoned" || action === "interrupted") this.#summon();
    }
  }

  #command(command: Housekeeping): void {
    switch (command) {
      case "stop":
        return this.stop();
      case "clearDraft":
        return this.clearDraft();
      case "newConversation":
        this.newConversation();
        return void this.#announce(this.ports.phrases.conversationBegun);
      case "mute":
        return this.toggleMute();
    }
  }

  #ask(question: Question): void {
    this.#endTurn();
    this.#window.close();
    this.#spokenLately = "";
    const turn = new Turn(question, this.ports);
    this.#turn = turn;
    const failed = (error: unknown): void => this.ports.log(`um pedido falhou (${String(error)})`);
    void turn.run().catch(failed).then(() => {
      if (turn !== this.#turn) return;
      this.#turn = undefined;
      this.#timings = turn.timings;
      if (question.isSpoken && !this.#isMuted) this.#window.open(this.ports.settings().followUpMs);
      this.ports.changed();
      this.ports.turnEnded();
    });
    this.ports.changed();
  }

  #endTurn(): void {
    const turn = this.#turn;
    this.#turn = undefined;
    this.#isSampling = false;
    if (turn) {
      turn.stop();
      this.ports.turnEnded();
    } else {
      this.ports.speaker.stop();
    }
  }

  /** Says a sentence that is not part of the conversation. */
  async #announce(sentence: string): Promise<void> {
    this.#isSampling = true;
    this.#spokenLately = "";
    this.ports.speaker.say(sentence);
    this.ports.changed();
    await this.ports.speaker.finished();
    // Another turn or announcement may have taken its place meanwhile.
    if (this.#turn || this.ports.speaker.isBusy) return;
    this.#isSampling = false;
    this.ports.changed();
  }

  /** It may be answered without the name: "stop", "snooze". */
  async #tell(sentences: string): Promise<void> {
    await this.#announce(sentences);
    if (this.#turn || this.#isSampling || this.#isMuted) return;
    this.#window.open(this.ports.settings().followUpMs);
    this.ports.changed();
  }

  #summon(): void {
    this.#window.open(this.ports.settings().summonMs);
    this.#chime();
  }

  #chime(): void {
    this.ears.guard(chimeMs);
    this.ports.chime();
  }

  #showCaption(text: string): void {
    this.#heard.caption(this.ports.clock.now(), text);
    this.ports.changed();
  }

  #note(speech: HeardSpeech, { action, reason }: Interpretation): void {
    this.#heard.add(speech.endedAt, speech.text, action, reason);
    this.ports.changed();
  }
}
