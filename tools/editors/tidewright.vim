" Tidewright C++ in Vim and Neovim: put this file in ~/.vim/plugin/ (Vim) or
" ~/.config/nvim/plugin/ (Neovim), or source it from your vimrc.
"
"   gggqG and gg=G   format the whole C or C++ buffer through tidewright
"                    ('formatprg' and 'equalprg'); on a failure the buffer
"                    holds tidewright's message instead: press u
"   :Tidewright      format the whole buffer; on a failure show the message
"                    and leave the buffer as it was
"
" tidewright formats whole files: a range smaller than the buffer only parses
" when it holds whole declarations.

augroup tidewright
  autocmd!
  " %:S is the buffer's file name, quoted for the shell: the project's scheme
  " (.tidewright.tws) is found from it.
  autocmd FileType c,cpp setlocal formatprg=tidewright\ --assume-filename\ %:S
  autocmd FileType c,cpp setlocal equalprg=tidewright\ --assume-filename\ %:S
augroup END

function! TidewrightBuffer() abort
  let l:errors = tempname()
  let l:out = systemlist('tidewright --assume-filename ' . shellescape(expand('%')) . ' 2>' . shellescape(l:errors),
        \ getline(1, '$'))
  if v:shell_error == 0
    let l:view = winsaveview()
    silent! execute len(l:out) + 1 . ',$delete _'
    call setline(1, l:out)
    call winrestview(l:view)
  else
    echoerr join(readfile(l:errors), "\n")
  endif
  call delete(l:errors)
endfunction
command! Tidewright call TidewrightBuffer()
