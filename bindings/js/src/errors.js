/** Why a call failed. */
export class ConversionError extends Error {
  name = "ConversionError";

  constructor(code, message, messages = []) {
    super(message);
    this.code = code;
    this.messages = messages;
  }
}
