// Wires the parts of the engine together, gives the documents and takes the commands. Only the port is not part of it.

import { join } from "node:path";
import type { Clock } from "./base/clock.ts";
import type { Locale } from "./base/language.ts";
import type { Log } from "./base/log.ts";
import { phrases } from "./base/phrases.ts";
import type { ConversationSummary, LoopState, Options, Settings, Snapshot } from "./base/protocol.ts";
import type { Microphone } from "./hearing/microphone.ts";
import type { SpeechDetector } from "./hearing/speechDetector.ts";
import { Bus } from "./hands/bus.ts";
import type { Hand } from "./hands/hand.ts";
import { allHands, askedRows, type AskedRow } from "./hands/hands.ts";
import { DesktopNotifications } from "./hands/notifications.ts";
import { Ringing } from "./hands/timers/ringing.ts";
import { Timers } from "./hands/timers/timers.ts";
import { Loop } from "./loop/loop.ts";
import { actions, type Choices } from "./machine/choices.ts";
import { isPathOf, makeFolder, presentFolders } from "./machine/folders.ts";
import { nothingWaiting, type Span, type Waiting } from "./memory/archive.ts";
import { Conversations } from "./memory/conversations.ts";
import type { Found } from "./memory/settingChecks.ts";
import { SettingsKeeper } from "./memory/settings.ts";
import { KeptVolume } from "./memory/keptVolume.ts";
import { Store } from "./memory/store.ts";
import { AudioLink } from "./port/audioLink.ts";
import { EventStream } from "./port/eventStream.ts";
import type { Served } from "./port/served.ts";
import type { Recogniser } from "./recognition/recogniser.ts";
import type { Brain } from "./thought/answer.ts";
import { Speaker } from "./voice/speaker.ts";
import type { Synthesiser } from "./voice/synthesiser.ts";
import { SofterSynthesiser } from "./voice/volume.ts";

/** A setting of the microphone waits no longer than this for the front end to open it. */
const deviceWaitMs = 5_000;
/** What fell due while the engine was away rings when a front end has had the time to connect. */
const firstRingMs = 5_000;
/** The timers stand among the settings in the store, under a name that no setting has. */
const timersKey = "hands.timers";

export interface EngineParts {
  clock: Clock;
  log: Log;
  locale: Locale;
  /** The engine's data are kept here. */
  folder: string;
  choices: Choices;
  synthesiser: Synthesiser;
  recogniser: (settings: () => Settings) => Recogniser;
  speechDetector?: SpeechDetector;
  isCaptioning: () => boolean;
  /** Makes the brain that has these hands. */
  brain: (hands: readonly Hand[]) => Brain;
  microphone: (onSamples: (samples: Int16Array) => void) => Microphone;
}

export class Engine implements Served {
  readonly events = new EventStream();
  readonly link: AudioLink;
  readonly loop: Loop;
  readonly #store: Store;
  readonly #settings: SettingsKeeper;
  readonly #conversations: Conversations;
  readonly #speaker: Speaker;
  readonly #microphone: Microphone;
  readonly #timers: Timers;
  readonly #brain: Brain;
  readonly #rows: AskedRow[];
  #awaitedDevice: (() => void)[] = [];
  #sessionStartedAt: number;
  #looking: Promise<unknown> = Promise.resolve();
  #toldState: LoopState | undefined;

  constructor(private readonly parts: EngineParts) {
    const { clock, log, locale } = parts;
    const workingFolder = join(parts.folder, "work");
    this.#sessionStartedAt = clock.now();
    this.#store = new Store(parts.folder, log, clock);
    makeFolder(workingFolder);
    this.#conversations = new Conversations(this.#store, clock);
    const kept = this.#store.loadSettings();
    const shelf = { load: () => kept.get(timersKey), save: (text: string) => this.#store.saveSetting(timersKey, text) };
    this.#timers = new Timers(clock, shelf);
    const voice = new KeptVolume(this.#store, kept);
    const { children } = parts.choices;
    const bus = new Bus(children.environment);
    const hands = allHands({
      clock,
      locale,
      children,
      settings: () => this.#settings.current,
      conversations: this.#conversations,
      timers: this.#timers,
      voice,
      bus,
    });
    this.#brain = parts.brain(hands);
    this.#rows = askedRows(hands, locale.language);
    this.#settings = new SettingsKeeper(this.#store, {
      locale,
      workingFolder,
      recogniserModels: parts.choices.recogniserModels(),
      voices: () => parts.choices.voices(),
      actionIds: [...actions.map(({ id }) => id), ...this.#rows.map(({ id }) => id)],
      askedActionIds: [...actions.map(({ id }) => id), ...this.#rows.flatMap(({ id, isAsked }) => (isAsked ? [id] : []))],
    });
    this.#store.onReplaced = () => {
      this.#settings.saveAll();
      this.#conversations.saveAgain();
      this.#timers.saveAgain();
      voice.saveAgain();
    };
    const settings = (): Settings => this.#settings.current;
    this.link = new AudioLink({
      connected: () => this.#connected(),
      disconnected: () => this.#disconnected(),
      device: () => this.#deviceNamed(),
      samples: (samples) => this.loop.ears.take(samples),
      played: (id) => this.#speaker.played(id),
    });
    this.#microphone = parts.microphone((samples) => this.loop.ears.take(samples));
    this.#speaker = new Speaker(clock, new SofterSynthesiser(parts.synthesiser, () => voice.percent), this.link, settings, {
      started: (sentence) => {
        this.loop.sentenceStarted(sentence);
        this.events.send("spoken", JSON.stringify(sentence));
      },
      level: (level) => this.events.send("outLevel", String(level)),
      sounding: (isSounding) => this.loop.ears.ownVoice(isSounding),
    });
    this.loop = new Loop({
      clock,
      log,
      settings,
      brain: this.#brain,
      speaker: this.#speaker,
      recogniser: parts.recogniser(settings),
      ...(parts.speechDetector ? { speechDetector: parts.speechDetector } : {}),
      isCaptioning: parts.isCaptioning,
      conversations: this.#conversations,
      phrases: phrases[locale.language],
      chime: () => this.link.chime(),
      stopped: () => this.#timers.stop(),
      changed: () => this.changed(),
      turnEnded: () => this.events.send("turnEnd", ""),
      level: (level) => this.events.send("level", String(level)),
    });
    new Ringing(this.#timers, clock, log, locale.language, new DesktopNotifications(children, bus), this.loop);
    clock.after(firstRingMs, () => this.#timers.start());
  }

  get state(): Snapshot {
    const settings = this.#settings.current;
    const { timings } = this.loop;
    return {
      state: this.loop.state,
      isMuted: this.loop.isMuted,
      isMicDead: this.loop.ears.isMicDead,
      isEchoCancelled: settings.isEchoCancelOn && this.link.isConnected,
      device: this.link.device,
      conversation: this.#conversations.current,
      session: { ...this.#brain.session(settings), startedAt: this.#sessionStartedAt },
      heard: this.loop.heard,
      draft: this.loop.draft,
      settings,
      ...(timings === undefined ? {} : { timings }),
      memory: this.#conversations.memory,
    };
  }

  get history(): ConversationSummary[] {
    return this.#conversations.history;
  }

  async options(): Promise<Options> {
    const options = await this.parts.choices.options(this.link.device);
    return { ...options, confirmActions: [...options.confirmActions, ...this.#rows.map(({ id, label }) => ({ id, label }))] };
  }

  newConversation(): void {
    this.#sessionStartedAt = this.parts.clock.now();
    this.loop.newConversation();
  }

  /** Sets all of these or none, and resolves to what is wrong, if anything is, when the front end has followed. */
  async set(values: Record<string, unknown>): Promise<string | undefined> {
    // Requests are taken one after the other: a value that takes long to check must not replace one that was set later.
    const found = this.#looking.then(() => this.#lookFor(values));
    this.#looking = found;
    const outcome = this.#settings.set(values, await found);
    if ("problem" in outcome) return outcome.problem;
    this.loop.settingsChanged();
    this.changed();
    if (outcome.keys.includes("isEchoCancelOn")) this.#shareMicrophone();
    if (outcome.keys.some((key) => key === "inputDevice" || key === "inputPreference")) {
      await this.#chooseInput();
      if (this.link.isConnected) await this.#deviceNameComes();
    }
    return undefined;
  }

  unwritten(folder: string): Waiting {
    return isPathOf(folder, this.parts.folder) ? this.#store.waiting : nothingWaiting;
  }

  forget(folder: string, span: Span): number {
    if (!isPathOf(folder, this.parts.folder)) return 0;
    if (this.#conversations.isWithin(span)) this.newConversation();
    this.changed();
    return this.#store.forgetUnwritten(span);
  }

  /** Tells the front ends that something they show has changed. */
  changed(): void {
    const { state } = this.loop;
    if (state === this.#toldState) return this.events.send("change", "");
    this.#toldState = state;
    this.events.send("phase", state);
  }

  /** Ends what goes on. */
  quiet(): void {
    this.#timers.close();
    this.loop.stop();
    this.#microphone.close();
  }

  close(): void {
    this.#microphone.close();
    this.#store.close();
  }

  /** Looks for the folders and tools that a request wants to set. */
  async #lookFor({ claudePath, folders, workingFolder }: Record<string, unknown>): Promise<Found> {
    const { choices } = this.parts;
    const paths = [workingFolder, ...(Array.isArray(folders) ? folders.slice(0, 50) : [])];
    const tools = typeof claudePath === "string" && claudePath !== "" ? await choices.claudeTools() : [];
    return {
      folders: await presentFolders(choices.children, paths.filter((path) => typeof path === "string")),
      tools: tools.map(({ path }) => path),
    };
  }

  #connected(): void {
    const { isEchoCancelOn, inputDevice, inputPreference } = this.#settings.current;
    if (!isEchoCancelOn) this.#shareMicrophone();
    if (inputDevice !== undefined || inputPreference.length > 0) void this.#chooseInput();
    this.loop.ears.connect(true);
  }

  #disconnected(): void {
    this.#microphone.close();
    this.#speaker.disconnected();
    this.loop.ears.connect(false);
  }

  #deviceNamed(): void {
    this.loop.ears.deviceChanged();
    for (const resolve of this.#awaitedDevice.splice(0)) resolve();
    this.changed();
  }

  #deviceNameComes(): Promise<void> {
    return new Promise((resolve) => {
      const cancel = this.parts.clock.after(deviceWaitMs, resolve);
      this.#awaitedDevice.push(() => {
        cancel();
        resolve();
      });
    });
  }

  /** The microphone is the front end's while echo is cancelled, else the engine's own. */
  #shareMicrophone(): void {
    const { isEchoCancelOn } = this.#settings.current;
    this.link.enable(isEchoCancelOn);
    if (isEchoCancelOn || !this.link.isConnected) this.#microphone.close();
    else void this.#openMicrophone();
  }

  async #openMicrophone(): Promise<void> {
    const wanted = this.#settings.current.inputDevice ?? this.link.device;
    const sources = await this.parts.choices.sources();
    if (this.#settings.current.isEchoCancelOn || !this.link.isConnected) return;
    this.#microphone.open(sources.find(({ name }) => name === wanted)?.source);
  }

  /** The microphone that was chosen, else the first preferred one that is there, else the system's. */
  async #chooseInput(): Promise<void> {
    const { inputDevice, inputPreference, isEchoCancelOn } = this.#settings.current;
    const sources = inputDevice === undefined && inputPreference.length > 0 ? await this.parts.choices.sources() : [];
    const preferred = inputPreference.find((name) => sources.some((source) => source.name === name));
    this.link.useInput(inputDevice ?? preferred);
    if (!isEchoCancelOn) this.#shareMicrophone();
  }
}
