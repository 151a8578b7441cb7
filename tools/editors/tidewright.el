;;; tidewright.el --- format C and C++ buffers with tidewright  -*- lexical-binding: t -*-

;; Put this file on `load-path' and add (require 'tidewright) to your init
;; file. M-x tidewright-buffer formats the buffer; on a failure it shows the
;; message and leaves the buffer as it was. To format on every save:
;;   (add-hook 'c-mode-common-hook
;;             (lambda () (add-hook 'before-save-hook #'tidewright-buffer nil t)))

;;; Code:

(defgroup tidewright nil
  "Format C and C++ buffers with tidewright."
  :group 'tools)

(defcustom tidewright-program "tidewright"
  "The tidewright command."
  :type 'string)

(defcustom tidewright-arguments nil
  "More arguments for tidewright, such as (\"--scheme\" \"GNU\")."
  :type '(repeat string))

;;;###autoload
(defun tidewright-buffer ()
  "Format the buffer with tidewright; on a failure show the messages and change nothing."
  (interactive)
  (let ((out (generate-new-buffer " *tidewright*"))
        (errors (make-temp-file "tidewright")))
    (unwind-protect
        (if (zerop (apply #'call-process-region (point-min) (point-max) tidewright-program nil
                          (list out errors) nil
                          (append tidewright-arguments
                                  (list "--assume-filename" (or (buffer-file-name) (buffer-name))))))
            (replace-buffer-contents out)
          (message "tidewright: %s" (with-temp-buffer (insert-file-contents errors) (buffer-string))))
      (kill-buffer out)
      (delete-file errors))))

(provide 'tidewright)
;;; tidewright.el ends here
