// The recogniser models that can be fetched: Whisper in the ggml format, for many languages, Portuguese among them.

export interface Model {
  name: string;
  bytes: number;
  sha256: string;
  /** What to expect of it. */
  about: string;
}

/** One state of the models' repository, so that a model never changes under its name. */
export const publishedAt = "https://huggingface.co/ggerganov/whisper.cpp/resolve/5359861c739e955e79d9a303bcbc70fb988958b1";

/** The best that two cores keep up with. */
export const recommendedModel = "small-q5_1";

/** Smaller ones first. Those with a "q" are compressed, which is hardly heard and makes them faster. */
export const catalogue: readonly Model[] = [
  {
    name: "base-q5_1",
    bytes: 59_707_625,
    sha256: "422f1ae452ade6f30a004d7e5c6a43195e4433bc370bf23fac9cc591f01a8898",
    about: "quick, misses words; for old machines",
  },
  {
    name: "base",
    bytes: 147_951_465,
    sha256: "60ed5bc3dd14eea856493d334349b405782ddcaf0028d4b5df4088345fba2efe",
    about: "the same, not compressed",
  },
  {
    name: recommendedModel,
    bytes: 190_085_487,
    sha256: "ae85e4a935d7a567bd102fe55afc16bb595bdb618e11b2fc7591bc08120411bb",
    about: "understands well; recommended",
  },
  {
    name: "small",
    bytes: 487_601_967,
    sha256: "1be3a9b2063867b937e64e2ec7483364a79917e157fa98c5d94b5c1fffea987b",
    about: "the same, not compressed",
  },
  {
    name: "medium-q5_0",
    bytes: 539_212_467,
    sha256: "19fea4b380c3a618ec4723c3eef2eb785ffba0d0538cf43f8f235e7b3b34220f",
    about: "understands better, for eight cores",
  },
  {
    name: "large-v3-turbo-q5_0",
    bytes: 574_041_195,
    sha256: "394221709cd5ad1f40c46e6031ca61bce88931e6e088c188294c6d5a55ffa7e2",
    about: "understands best, for eight cores",
  },
  {
    name: "medium",
    bytes: 1_533_763_059,
    sha256: "6c14d5adee5f86394037b4e4e8b59f1673b6cee10e3cf0b11bbdbee79c156208",
    about: "not compressed",
  },
  {
    name: "large-v3-turbo",
    bytes: 1_624_555_275,
    sha256: "1fc70f774d38eb169993ac391eea357ef47c88757ef72ee5943879b7e8e2bc69",
    about: "not compressed",
  },
];
